// The arguments of a service, read from the words of a step by their types.
#ifndef RTI1516E_TESTS_SYSTEM_WORDS_H
#define RTI1516E_TESTS_SYSTEM_WORDS_H

#include "Services.h"
#include "src/messages/TypeCodes.h"

#include <cctype>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace system_tests {

namespace codes = tovu1516e;

class Words
{
public:
   // Without words every argument is the least that there is of its type: no number, name or handle, or a set
   // of one such.
   Words(Stage& stage, Federate& federate, std::vector<std::string> words, std::size_t arguments, bool blank)
      : _stage(stage), _federate(federate), _words(std::move(words)), _last(arguments), _blank(blank)
   {}

   template <class Code>
   auto argument()
   {
      ++_arguments;
      if constexpr (std::is_same_v<Code, codes::FA>) {
         return std::ref(_federate.receiver());
      } else if constexpr (std::is_same_v<Code, codes::CM>) {
         return _federate.model();
      } else if constexpr (std::is_same_v<Code, codes::LT>) {
         _time = time();
         return std::cref(*_time);
      } else if constexpr (std::is_same_v<Code, codes::LTI>) {
         _interval = _stage.interval(_blank ? "0" : take());
         return std::cref(*_interval);
      } else if constexpr (std::is_same_v<Code, codes::URL>) {
         skip("with");
         return _blank ? std::wstring() : _stage.text(take());
      } else {
         using Value = typename Code::Sendable;
         auto* const none = static_cast<Value*>(nullptr); // to choose by
         return _blank ? leastOf(none) : read(none);
      }
   }

   void expectEnd() const
   {
      if (!atEnd()) {
         throw Unreadable("nothing takes " + _words[_next]);
      }
   }

private:
   bool atEnd() const { return _next == _words.size(); }
   bool isNext(char const* beginning) const { return !atEnd() && _words[_next].rfind(beginning, 0) == 0; }

   bool skip(char const* word)
   {
      bool const is = isNext(word);
      _next += is ? 1 : 0;
      return is;
   }

   std::string take()
   {
      if (atEnd()) {
         throw Unreadable("there are too few arguments");
      }
      return _words[_next++];
   }

   template <class Value>
   static Value leastOf(Value*)
   {
      if constexpr (std::is_enum_v<Value>) {
         return Value(1);
      } else {
         return Value();
      }
   }
   template <class Element>
   static std::set<Element> leastOf(std::set<Element>*)
   {
      return {Element()};
   }

   // The first argument as it is, and "at" it where it comes behind others.
   std::unique_ptr<LogicalTime> time()
   {
      if (!_blank && _arguments > 1 && take() != "at") {
         throw Unreadable("a time stands behind \"at\"");
      }
      return _stage.time(_blank ? "0" : take(), _federate);
   }

   // The last of three or more may be left out, as in the interface.
   std::wstring read(std::wstring*)
   {
      if (atEnd() && _arguments > 2 && _arguments == _last) {
         return {};
      }
      std::string const word = take();
      bool const isNone = word.size() > 2 && word.rfind("no", 0) == 0 && std::isupper(word[2]);
      if (isNone || word.find('@') != std::string::npos || word.rfind("$fom/", 0) == 0) {
         throw Unreadable(word + " is no mere text");
      }
      return _stage.text(word);
   }

   std::set<std::wstring> read(std::set<std::wstring>*)
   {
      std::set<std::wstring> all;
      while (!atEnd()) {
         all.insert(wide(take()));
      }
      return all;
   }

   // Words of which one tells by the $ that they are files.
   std::vector<std::wstring> read(std::vector<std::wstring>*)
   {
      std::vector<std::wstring> all;
      while (!atEnd() && _words[_next].find('$') != std::string::npos) {
         all.push_back(_stage.text(take()));
      }
      return all;
   }

   VariableLengthData read(VariableLengthData*) { return bytes(isNext("tag=") ? take().substr(4) : ""); }

   bool read(bool*) { return !skip("passively") && !skip("unsuccessfully"); }

   double read(double*) { return std::stod(take()); }

   RangeBounds read(RangeBounds*)
   {
      std::string const word = take();
      std::size_t const dots = word.find("..");
      if (dots == std::string::npos) {
         throw Unreadable(word + " is no range");
      }
      return RangeBounds(std::stoul(word.substr(0, dots)), std::stoul(word.substr(dots + 2)));
   }

   AttributeHandleSetRegionHandleSetPairVector read(AttributeHandleSetRegionHandleSetPairVector*)
   {
      AttributeHandleSetRegionHandleSetPairVector all;
      for (std::size_t at = 0; !atEnd() && (at = _words[_next].find('@')) != std::string::npos; ++_next) {
         all.emplace_back(list<AttributeHandle>(_words[_next].substr(0, at)),
                          list<RegionHandle>(_words[_next].substr(at + 1)));
      }
      return all;
   }

   // As many as there are; {} says that there are none.
   template <class Handle>
   std::set<Handle> read(std::set<Handle>*)
   {
      std::set<Handle> all;
      skip("{}");
      while (!atEnd() && _stage.called<Handle>(_words[_next], _federate)) {
         all.insert(handle<Handle>(take()));
      }
      return all;
   }

   template <class Handle>
   std::map<Handle, VariableLengthData> read(std::map<Handle, VariableLengthData>*)
   {
      std::map<Handle, VariableLengthData> all;
      for (; !atEnd(); ++_next) {
         std::size_t const equals = _words[_next].find('=');
         std::string const name = _words[_next].substr(0, equals);
         if (equals == std::string::npos || !_stage.called<Handle>(name, _federate)) {
            break;
         }
         all[handle<Handle>(name)] = bytes(_stage.value(_words[_next].substr(equals + 1)));
      }
      return all;
   }

   // A handle, or an enumerator by the text that shows it.
   template <class Value>
   Value read(Value*)
   {
      std::string const word = take();
      if constexpr (std::is_enum_v<Value>) {
         for (int value = 0; value < 10; ++value) {
            if (show(static_cast<Value>(value)) == word) {
               return static_cast<Value>(value);
            }
         }
         throw Unreadable(word + " is none of the words for this");
      } else {
         return handle<Value>(word);
      }
   }

   template <class Handle>
   Handle handle(std::string const& name) const
   {
      auto const found = _stage.called<Handle>(name, _federate);
      if (!found) {
         throw Unreadable(name + " is no " + show(Handle()));
      }
      return *found;
   }

   template <class Handle>
   std::set<Handle> list(std::string const& names) const
   {
      std::set<Handle> all;
      for (auto const& name : split(names, ',')) {
         all.insert(handle<Handle>(name));
      }
      return all;
   }

   Stage& _stage;
   Federate& _federate;
   std::vector<std::string> _words;
   std::size_t _next = 0;
   std::size_t _arguments = 0;
   std::size_t const _last;
   std::unique_ptr<LogicalTime> _time; // that an argument refers to
   std::unique_ptr<LogicalTimeInterval> _interval;
   bool const _blank;
};

} // namespace system_tests

#endif

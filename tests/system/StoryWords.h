// The arguments of a service, read from the words of a step.
#ifndef RTI1516E_TESTS_SYSTEM_STORYWORDS_H
#define RTI1516E_TESTS_SYSTEM_STORYWORDS_H

#include "Stage.h"
#include "Story.h"
#include "src/messages/TypeCodes.h"

#include <cstddef>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace system_tests {

namespace codes = tovu1516e;

class Unreadable : public std::runtime_error
{
   using std::runtime_error::runtime_error;
};

// The name of the story's federation, which needs no word.
struct OwnFederation
{};

// Reads a parameter as the letters of its kind have it.
class StoryWords
{
public:
   StoryWords(Stage& stage, Federate& federate, std::vector<std::string> words)
      : _stage(stage), _federate(federate), _words(std::move(words))
   {}

   // Where there are no words, so that every argument is the least that there is of its type.
   static StoryWords blank(Stage& stage, Federate& federate)
   {
      StoryWords words(stage, federate, {});
      words._blank = true;
      return words;
   }

   Stage& stage() { return _stage; }
   Federate& federate() { return _federate; }

   void expectEnd() const;

   template <class Code>
   auto argument()
   {
      ++_arguments;
      return read(Code());
   }

private:
   std::wstring read(OwnFederation) { return _stage.text("$federation"); }
   std::wstring read(codes::S);
   std::wstring read(codes::URL);
   std::set<std::wstring> read(codes::NameSet);
   std::vector<std::wstring> read(codes::URLX);
   VariableLengthData read(codes::BX);
   bool read(codes::Z);
   double read(codes::D) { return _blank ? 0 : std::stod(take("a number")); }
   RangeBounds read(codes::RB);
   std::unique_ptr<LogicalTime> read(codes::LT);
   std::unique_ptr<LogicalTimeInterval> read(codes::LTI);

   ResignAction read(codes::RA) { return enumerator<ResignAction>(); }
   ServiceGroup read(codes::SG) { return enumerator<ServiceGroup>(); }
   OrderType read(codes::OT) { return enumerator<OrderType>(); }
   TransportationType read(codes::TTH) { return enumerator<TransportationType>(); }

   ObjectClassHandle read(codes::OCH) { return handle<ObjectClassHandle>(); }
   ObjectInstanceHandle read(codes::OIH) { return handle<ObjectInstanceHandle>(); }
   InteractionClassHandle read(codes::ICH) { return handle<InteractionClassHandle>(); }
   AttributeHandle read(codes::AH) { return handle<AttributeHandle>(); }
   ParameterHandle read(codes::PH) { return handle<ParameterHandle>(); }
   FederateHandle read(codes::FH) { return handle<FederateHandle>(); }
   DimensionHandle read(codes::DH) { return handle<DimensionHandle>(); }
   RegionHandle read(codes::RH) { return handle<RegionHandle>(); }
   MessageRetractionHandle read(codes::MRH) { return handle<MessageRetractionHandle>(); }

   AttributeHandleSet read(codes::AHS) { return handles<AttributeHandle>(); }
   FederateHandleSet read(codes::FHS) { return handles<FederateHandle>(); }
   DimensionHandleSet read(codes::DHS) { return handles<DimensionHandle>(); }
   RegionHandleSet read(codes::RHS) { return handles<RegionHandle>(); }
   AttributeHandleValueMap read(codes::AHVM) { return values<AttributeHandle>(); }
   ParameterHandleValueMap read(codes::PHVM) { return values<ParameterHandle>(); }
   AttributeHandleSetRegionHandleSetPairVector read(codes::ASRSPL);

   bool atEnd() const { return _next == _words.size(); }
   std::string take(char const* kind);

   // Of a kind whose texts are known.
   template <class Enum>
   Enum enumerator()
   {
      std::string const word = _blank ? show(Enum(1)) : take("one of a few words");
      for (int value = 0; value < 10; ++value) {
         if (show(static_cast<Enum>(value)) == word) {
            return static_cast<Enum>(value);
         }
      }
      throw Unreadable(word + " is none of the words for this");
   }

   template <class Handle>
   Handle handle()
   {
      return _blank ? Handle() : handle<Handle>(take("a name"));
   }

   template <class Handle>
   Handle handle(std::string const& name) const
   {
      auto const found = _stage.called<Handle>(name);
      if (!found) {
         throw Unreadable(name + " is no " + show(Handle()));
      }
      return *found;
   }

   // As many as there are; {} says that there are none.
   template <class Handle>
   std::set<Handle> handles()
   {
      std::set<Handle> all;
      _next += !atEnd() && _words[_next] == "{}" ? 1 : 0;
      for (; !atEnd() && _stage.called<Handle>(_words[_next]); ++_next) {
         all.insert(handle<Handle>(_words[_next]));
      }
      return all;
   }

   template <class Handle>
   std::set<Handle> handles(std::string const& list) const
   {
      std::set<Handle> all;
      for (auto const& name : split(list, ',')) {
         all.insert(handle<Handle>(name));
      }
      return all;
   }

   // A value: of the MIM's types where it has their form, or else the characters of the word.
   VariableLengthData value(std::string const& word) const;

   template <class Handle>
   std::map<Handle, VariableLengthData> values()
   {
      std::map<Handle, VariableLengthData> all;
      for (; !atEnd(); ++_next) {
         std::size_t const equals = _words[_next].find('=');
         if (equals == std::string::npos || !_stage.called<Handle>(_words[_next].substr(0, equals))) {
            break;
         }
         all[handle<Handle>(_words[_next].substr(0, equals))] = value(_words[_next].substr(equals + 1));
      }
      return all;
   }

   Stage& _stage;
   Federate& _federate;
   std::vector<std::string> _words;
   std::size_t _next = 0;
   int _arguments = 0;
   bool _blank = false;
};

} // namespace system_tests

#endif

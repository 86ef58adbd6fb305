// What the federates of a story are called, and what they call things.
#ifndef RTI1516E_TESTS_SYSTEM_STAGE_H
#define RTI1516E_TESTS_SYSTEM_STAGE_H

#include "Federate.h"
#include "Text.h"

#include <RTI/RTI1516.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

namespace system_tests {

class Stage
{
public:
   Stage(CallbackModel model, bool integerTime);

   // Comes to be when it is named.
   Federate& federate(std::string const& name);
   void forget(std::string const& name) { _federates.erase(name); }
   std::map<std::string, std::unique_ptr<Federate>>& federates() { return _federates; }

   // Makes the story's federation, of the story's own kind of time if none is named.
   void createFederation(std::string const& module, std::string const& time);

   // Has all federates resign, destroys the federations and disconnects the federates.
   void end();

   template <class Handle>
   void call(Handle const& handle, std::string const& name)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      std::get<Named<Handle>>(_handles)[name] = handle;
      _names.add(handle, name);
   }

   // What of that kind has the name, if anything; noRegion is an invalid region, and so on.
   template <class Handle>
   std::unique_ptr<Handle> called(std::string const& name, Federate& federate)
   {
      find(federate, name, Handle());
      std::lock_guard<std::mutex> const lock(_mutex);
      auto const& handles = std::get<Named<Handle>>(_handles);
      auto const found = handles.find(name);
      if (found != handles.end()) {
         return std::make_unique<Handle>(found->second);
      }
      std::string const kind = showArgument(true, Handle());
      return name == "no" + kind.substr(0, kind.find("Handle")) ? std::make_unique<Handle>() : nullptr;
   }

   Names& names() { return _names; }

   // The octets of a value: of the MIM's data types where the word has their form, or else its characters. :5
   // is an integer, 'text' a HLAunicodeString with _ for blanks, #name or #5 a handle, x00ff an array of
   // bytes, (a,b) an array and a+b a record.
   std::string value(std::string const& word) const;

   // $federation and $other are federations of this story alone, $fom/ and $copies/ folders of FOM modules,
   // and $mim is the standard one.
   std::wstring text(std::string const& word) const;

   std::unique_ptr<LogicalTime> time(std::string const& word, Federate& federate) const;
   std::unique_ptr<LogicalTimeInterval> interval(std::string const& word) const;

private:
   // Has the federate look up what is called so in the object models: a dimension, or a class by the end of
   // its full name with all its attributes or parameters. One in several classes is that of the class named
   // last.
   void find(Federate& federate, std::string const& name, ObjectClassHandle);
   void find(Federate& federate, std::string const& name, InteractionClassHandle);
   void find(Federate& federate, std::string const& name, DimensionHandle);
   template <class Handle>
   void find(Federate&, std::string const&, Handle)
   {}

   std::string handle(std::string const& name) const;

   template <class Look, class LookIn>
   void find(Federate& federate, std::string const& root, std::string const& name, Look look, LookIn lookIn);

   template <class Handle>
   using Named = std::map<std::string, Handle>;

   CallbackModel const _model;
   bool _integerTime;
   std::string const _federation;
   Names _names;
   mutable std::mutex _mutex; // callbacks may have steps of their own
#define SYSTEM_TESTS_NAMED(Handle) Named<Handle>,
   std::tuple<RTI_FOR_EACH_HANDLE(SYSTEM_TESTS_NAMED) Named<MessageRetractionHandle>> _handles;
#undef SYSTEM_TESTS_NAMED
   std::map<std::string, std::unique_ptr<Federate>> _federates;
   std::mutex _finding;
   std::map<std::string, std::vector<std::function<void()>>>
      _found; // what gives a class and its members their names
};

} // namespace system_tests

#endif

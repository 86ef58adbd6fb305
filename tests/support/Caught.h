// What a call throws, by class and text.
#pragma once

#include <RTI/Exception.h>

#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <typeinfo>

namespace contract {

struct Caught
{
   std::string type; // without the namespace; empty if nothing was thrown
   std::wstring text;

   friend bool operator==(Caught const& left, Caught const& right)
   {
      return left.type == right.type && left.text == right.text;
   }

   friend std::ostream& operator<<(std::ostream& stream, Caught const& caught)
   {
      return stream << (caught.type.empty() ? "nothing" : caught.type) << ": "
                    << testing::PrintToString(caught.text);
   }
};

template <class Call>
Caught caughtFrom(Call call)
{
   try {
      call();
      return {};
   } catch (rti1516e::Exception const& exception) {
      int status = 0;
      std::unique_ptr<char, void (*)(void*)> const name(
         abi::__cxa_demangle(typeid(exception).name(), nullptr, nullptr, &status), std::free);
      std::string const qualified(name.get());
      return {qualified.substr(qualified.rfind(':') + 1), exception.what()};
   } catch (std::exception const& exception) {
      std::string const text(exception.what());
      return {"std::exception", {text.begin(), text.end()}};
   } catch (...) {
      return {"unknown", {}};
   }
}

} // namespace contract

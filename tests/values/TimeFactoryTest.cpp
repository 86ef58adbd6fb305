#include <RTI/LogicalTimeFactory.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using namespace rti1516e;

// The library's own selector and that of the default time library know the same names.
TEST(TimeFactorySelectors, KnowTheStandardNamesExactly)
{
   struct
   {
      std::wstring given, selected;
   } const rows[] = {
      {L"HLAinteger64Time", L"HLAinteger64Time"},
      {L"HLAfloat64Time", L"HLAfloat64Time"},
      {L"", L"HLAfloat64Time"},
      {L"hlainteger64time", L"none"},
      {L"HLAinteger64Time ", L"none"},
      {L" HLAfloat64Time", L"none"},
      {L"HLAfloat64", L"none"},
      {std::wstring(L"HLAfloat64Time\0", 15), L"none"},
      {std::wstring(1, L'\0'), L"none"},
   };
   for (auto* const select : {&HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory,
                              &LogicalTimeFactoryFactory::makeLogicalTimeFactory}) {
      for (auto const& row : rows) {
         std::auto_ptr<LogicalTimeFactory> const factory = select(row.given);
         EXPECT_EQ(factory.get() == nullptr ? L"none" : factory->getName(), row.selected)
            << testing::PrintToString(row.given);
      }
      auto const one = select(L"");
      auto const other = select(L"");
      EXPECT_NE(one.get(), other.get());
   }
}

} // namespace

#include <RTI/LogicalTimeFactory.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using namespace rti1516e;

std::wstring nameOf(std::auto_ptr<LogicalTimeFactory> factory)
{
   return factory.get() == nullptr ? L"none" : factory->getName();
}

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
         EXPECT_EQ(nameOf(select(row.given)), row.selected) << testing::PrintToString(row.given);
      }
      auto const one = select(L"");
      auto const other = select(L"");
      EXPECT_NE(one.get(), other.get());
   }
}

// Made before the library's static objects, as those of a library in the place of libfedtime1516e are.
struct Early
{
   std::wstring const ofFactory = HLAinteger64TimeFactory().getName();
   std::wstring const ofTime = HLAfloat64Time(1.5).implementationName();
   std::wstring const selected =
      nameOf(HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(L"HLAinteger64Time"));
   std::wstring const byDefault = nameOf(HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(L""));
};
Early const early [[gnu::init_priority(101)]];

TEST(TimeFactorySelectors, WorkForStaticObjects)
{
   EXPECT_EQ(early.ofFactory, HLAinteger64TimeName);
   EXPECT_EQ(early.ofTime, HLAfloat64TimeName);
   EXPECT_EQ(early.selected, HLAinteger64TimeName);
   EXPECT_EQ(early.byDefault, HLAfloat64TimeName);
}

} // namespace

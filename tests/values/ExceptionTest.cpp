#include <RTI/Exception.h>

#include <gtest/gtest.h>
#include <sstream>
#include <utility>

namespace {

using namespace rti1516e;

// Tells by which handler an exception is caught: 0 by that of its own class, 1 by the base's.
template <class Own>
int caughtBy(std::wstring const& message, std::wstring& seen)
{
   try {
      try {
         throw Own(message);
      } catch (Own const& own) {
         seen = own.what();
         throw;
      }
   } catch (Exception const& any) {
      return dynamic_cast<Own const*>(&any) != nullptr && seen == any.what() ? 0 : 1;
   }
}

template <class Own>
void keepsItsMessage()
{
   std::wstring const message = L"a message too long for the small string: \x00e9 \x20ac \x1F680";
   Own original(message);
   Own const copy(original);
   EXPECT_EQ(copy.what(), message);
   Own moved(std::move(original));
   EXPECT_EQ(moved.what(), message);
   EXPECT_EQ(original.what(), L""); // NOLINT(bugprone-use-after-move): what a move leaves is the point

   Own assigned(L"old");
   assigned = copy;
   Own& itself = assigned;
   assigned = itself;
   assigned = std::move(itself);
   EXPECT_EQ(assigned.what(), message);
   original = std::move(assigned);
   EXPECT_EQ(original.what(), message);
   EXPECT_EQ(assigned.what(), L""); // NOLINT(bugprone-use-after-move)

   std::wstring seen;
   EXPECT_EQ(caughtBy<Own>(message, seen), 0);
   EXPECT_EQ(seen, message);
}

TEST(Exceptions, EachOfThemKeepsItsMessageAndItsType){
#define CHECK_EXCEPTION(Name)  \
   {                           \
      SCOPED_TRACE(#Name);     \
      keepsItsMessage<Name>(); \
   }
   RTI_FOR_EACH_EXCEPTION(CHECK_EXCEPTION)
#undef CHECK_EXCEPTION
}

TEST(Exceptions, AreSiblings)
{
   EXPECT_THROW(
      {
         try {
            throw InvalidRegion(L"");
         } catch (InvalidRegionContext const&) {
            FAIL() << "caught by a sibling's handler";
         } catch (RTIinternalError const&) {
            FAIL() << "caught by a sibling's handler";
         }
      },
      InvalidRegion);
}

TEST(Exceptions, ArePrintedAsTheirMessage)
{
   std::wostringstream stream;
   stream << NameNotFound(L"HLAobjectRoot.Aircraft");
   EXPECT_EQ(stream.str(), L"HLAobjectRoot.Aircraft");
}

} // namespace

#include <RTI/Exception.h>

#include <gtest/gtest.h>
#include <sstream>
#include <type_traits>
#include <utility>

namespace {

using namespace rti1516e;

template <class Own>
void keepsItsMessage(std::wstring const& message)
{
   static_assert(std::is_same_v<Own, RTIinternalError> || !std::is_base_of_v<RTIinternalError, Own>);
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

   EXPECT_THROW(throw Own(message), Own);
   try {
      throw Own(message);
   } catch (Exception const& any) {
      EXPECT_EQ(any.what(), message);
   }
}

TEST(Exceptions, EachOfThemKeepsItsMessageAndItsType){
#define CHECK_EXCEPTION(Name)                                                                   \
   {                                                                                            \
      SCOPED_TRACE(#Name);                                                                      \
      keepsItsMessage<Name>(L"short");                                                          \
      keepsItsMessage<Name>(L"a message too long for the small string: \x00e9 \x20ac \x1F680"); \
   }
   RTI_FOR_EACH_EXCEPTION(CHECK_EXCEPTION)
#undef CHECK_EXCEPTION
}

TEST(Exceptions, ArePrintedAsTheirMessage)
{
   std::wostringstream stream;
   stream << NameNotFound(L"HLAobjectRoot.Aircraft");
   EXPECT_EQ(stream.str(), L"HLAobjectRoot.Aircraft");
}

} // namespace

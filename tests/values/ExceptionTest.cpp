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
   try {
      throw Own(message);
   } catch (Exception const& any) {
      std::wostringstream printed;
      printed << any;
      EXPECT_EQ(printed.str(), message);
   }
   Own original(message);
   Own assigned(L"old");
   assigned = original;
   Own& itself = assigned;
   assigned = itself;
   assigned = std::move(itself);
   EXPECT_EQ(assigned.what(), message);
   Own moved(std::move(original));
   EXPECT_EQ(original.what(), L""); // NOLINT(bugprone-use-after-move): what a move leaves is the point
   original = std::move(moved);
   EXPECT_EQ(original.what(), message);
   EXPECT_EQ(moved.what(), L""); // NOLINT(bugprone-use-after-move)
}

TEST(Exceptions, KeepTheirMessagesAndTypes)
{
   for (auto const* const message : {L"short", L"too long for the small string: \x00e9 \x20ac \x1F680"}) {
#define CHECK_EXCEPTION(Name) keepsItsMessage<Name>(message);
      RTI_FOR_EACH_EXCEPTION(CHECK_EXCEPTION)
#undef CHECK_EXCEPTION
   }
}

} // namespace

#include "Fixture.h"
#include "Samples.h"

#include <functional>

namespace contract {
namespace {

using AwkwardValuesTest = ContractTest;

TEST_F(AwkwardValuesTest, TravelRight)
{
   struct Case
   {
      std::function<void()> call;
      Bytes message;
   };
   auto const save = [&](std::wstring const& label) {
      return [&, label] { rti.requestFederationSave(label); };
   };
   auto const character = [](unsigned int number) { return static_cast<wchar_t>(number); };
   auto const object = handle<ObjectInstanceHandle>(1);
   auto const interaction = handle<InteractionClassHandle>(0x89ABCDEF);
   auto const region = handle<RegionHandle>(2);
   auto const dimension = handle<DimensionHandle>(3);
   for (auto const& [call, message] : std::vector<Case>{
           {save(L""), Bytes("00000000")},
           {save(L"A"), Bytes("00000001 0041")},
           {save(std::wstring(L"a\0b", 3)), Bytes("00000003 0061 0000 0062")},
           {save(L"\uFFFF\U00010000\U0010FFFF"), Bytes("00000005 FFFF D800 DC00 DBFF DFFF")},
           // Half a pair travels as it is; what is no character becomes the replacement character.
           {save({character(0xD83D), L'x', character(0xDE80)}), Bytes("00000003 D83D 0078 DE80")},
           {save({character(0x110000), character(0x7FFFFFFF), character(0x80000000), character(0xFFFFFFFF)}),
            Bytes("00000004 FFFD FFFD FFFD FFFD")},
           {[&] { rti.registerFederationSynchronizationPoint(L"", {}, {}); },
            Bytes("00000000 00000000 00000000")},
           {[&] { rti.reserveMultipleObjectInstanceName({}); }, Bytes("00000000")},
           {[&] { rti.createRegion({}); }, Bytes("00000000")},
           {[&] { rti.createFederationExecution(L"", std::vector<std::wstring>()); },
            Bytes("00000000 00000000 00000000")},
           {[&] { rti.registerObjectInstanceWithRegions({}, {}); }, Bytes("00000000 00000000")},
           {[&] { rti.updateAttributeValues(object, {}, {}, TestTime(1)); },
            Bytes("00000001 00000000 00000000 7A0000 0000000000000001")},
           {[&] { rti.retract(MessageRetractionHandle()); }, Bytes("00000000 00000000")},
           {[&] { rti.setRangeBounds(region, dimension, RangeBounds(5, 10)); },
            Bytes("00000002 00000003 0000000000000005 000000000000000A")},
           // Only the low 32 bits of a bound cross.
           {[&] { rti.setRangeBounds(region, dimension, RangeBounds(0x1FFFFFFFF, 0x100000000)); },
            Bytes("00000002 00000003 00000000FFFFFFFF 0000000000000000")},
           {[&] { rti.subscribeInteractionClassWithRegions(interaction, {region}, false); },
            Bytes("89ABCDEF 00000000 00000001 00000002")},
           {[&] { rti.subscribeInteractionClass(interaction); }, Bytes("89ABCDEF 00000001")},
           {[&] { rti.subscribeObjectClassAttributes({}, {}); },
            Bytes("00000000 00000000 00000001 00000000")},
           {[&] { rti.synchronizationPointAchieved(L"p", false); }, Bytes("00000001 0070 00000000")},
        }) {
      core.forget();
      call();
      EXPECT_EQ(core.calls().at(0).message, message) << core.calls().at(0).method;
   }
}

TEST_F(AwkwardValuesTest, EveryEnumerationValueHasItsCode)
{
   auto const sent = [&](auto call) {
      core.forget();
      call();
      auto const message = core.calls().at(0).message.value();
      return message.from(message.size() - 4).leadingInt();
   };
   for (std::uint32_t value = 0; value <= 5; ++value) {
      EXPECT_EQ(sent([&] { rti.resignFederationExecution(static_cast<ResignAction>(value)); }), value);
   }
   for (std::uint32_t value = 0; value <= 6; ++value) {
      EXPECT_EQ(sent([&] { rti.normalizeServiceGroup(static_cast<ServiceGroup>(value)); }), value + 1);
   }
   EXPECT_EQ(sent([&] { rti.changeInteractionOrderType({}, RECEIVE); }), 0U);
   EXPECT_EQ(sent([&] { rti.changeInteractionOrderType({}, TIMESTAMP); }), 1U);
   EXPECT_EQ(sent([&] { rti.requestInteractionTransportationTypeChange({}, RELIABLE); }), 1U);
   EXPECT_EQ(sent([&] { rti.requestInteractionTransportationTypeChange({}, BEST_EFFORT); }), 2U);

   for (auto const& [model, code] : {std::pair{HLA_EVOKED, 1U}, {HLA_IMMEDIATE, 2U}}) {
      core.forget();
      rti.connect(member.federate, model);
      EXPECT_EQ(core.calls().at(0).message, Bytes().int32(member.token).int32(code).int32(0));
   }
}

TEST_F(AwkwardValuesTest, LargeOnesTravelWhole)
{
   Bytes const value(std::string(10'000'000, 'x').data(), 10'000'000);
   rti.updateAttributeValues(samples::object, {{handle<AttributeHandle>(1), data(value)}}, samples::tag);
   EXPECT_EQ(core.calls().at(0).message,
             Bytes("FEDCBA98 00000001 00000001").counted(value).append(Bytes("00000004 00FF807A")));

   core.forget();
   constexpr std::uint32_t count = 10'000;
   AttributeHandleValueMap values;
   Bytes expected = Bytes("FEDCBA98").int32(count);
   for (std::uint32_t i = 1; i <= count; ++i) {
      values[handle<AttributeHandle>(i)] = data(Bytes().int32(~i));
      expected.int32(i).counted(Bytes().int32(~i));
   }
   rti.updateAttributeValues(samples::object, values, {});
   EXPECT_EQ(core.calls().at(0).message, expected.int32(0));
}

} // namespace
} // namespace contract

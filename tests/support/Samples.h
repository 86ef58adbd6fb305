// A value or more of every type that a service takes, and the bytes that they travel as, by the codes in the
// names of the Java methods.
#pragma once

#include "tests/support/Bytes.h"
#include "tests/support/TestTime.h"

#include <RTI/RTI1516.h>

#include <cstdint>
#include <string>
#include <vector>

namespace contract {

// Data of the interface from bytes, and handles as the federate can make them: through their encoding.
inline rti1516e::VariableLengthData data(Bytes const& bytes)
{
   return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

template <class Handle>
Handle decodedHandle(Bytes const& bytes)
{
   struct Maker : Handle
   {
      explicit Maker(rti1516e::VariableLengthData const& encoded) : Handle(encoded) {}
   };
   return Maker(data(bytes));
}

template <class Handle>
Handle handle(std::uint32_t number)
{
   return decodedHandle<Handle>(Bytes().int32(number));
}

namespace samples {

using namespace rti1516e;

inline std::wstring const name1 = L"Z\u00fcrich";
inline std::wstring const name2 = L"\U0001F680 \u20ac";
inline std::wstring const name3 = L"c";
inline std::set<std::wstring> const nameSet = {name1, name2, L""};
inline std::wstring const module = L"file:///a%20b.xml";
inline std::vector<std::wstring> const modules = {L"one.xml", L"", L"Two.xml"};
inline VariableLengthData const tag = data(Bytes("00 FF 80 7A"));
inline auto const objectClass = handle<ObjectClassHandle>(0x11);
inline auto const interactionClass = handle<InteractionClassHandle>(0x80000012);
inline auto const object = handle<ObjectInstanceHandle>(0xFEDCBA98);
inline auto const attribute = handle<AttributeHandle>(0x14);
inline auto const parameter = handle<ParameterHandle>(0x15);
inline auto const federate = handle<FederateHandle>(0x16);
inline auto const dimension = handle<DimensionHandle>(0x17);
inline auto const region = handle<RegionHandle>(0x18);
// Sets and maps are in the order of the unsigned numbers.
inline AttributeHandleSet const attributes = {handle<AttributeHandle>(0x80000001),
                                              handle<AttributeHandle>(2)};
inline FederateHandleSet const federates = {handle<FederateHandle>(4), handle<FederateHandle>(3)};
inline DimensionHandleSet const dimensions = {handle<DimensionHandle>(5)};
inline RegionHandleSet const regions = {handle<RegionHandle>(0xFFFFFFFF), handle<RegionHandle>(6)};
inline AttributeHandleValueMap const attributeValues = {
   {handle<AttributeHandle>(0x90000000), data(Bytes())},
   {handle<AttributeHandle>(7), data(Bytes("01 02 03"))}};
inline ParameterHandleValueMap const parameterValues = {{handle<ParameterHandle>(8), data(Bytes("04"))}};
inline AttributeHandleSetRegionHandleSetPairVector const pairs = {{attributes, regions}, {{}, {}}};
inline MessageRetractionHandle const retraction =
   decodedHandle<MessageRetractionHandle>(Bytes("89 AB CD EF 00 00 00 02 FA CE"));
inline RangeBounds const bounds(5, 0xFFFFFFFF);
inline TestTime const time(0x0102030405060708);
inline TestInterval const interval(0x0A0B);

} // namespace samples

// The codes in the name of a Java method or of a native. S stands for a set of strings in the services and
// callbacks on multiple names, and FASRI for less where objects are removed: these are "names" and
// "removeInfo".
std::vector<std::string> codesOf(std::string const& methodOrNative);

// The bytes that the samples travel as. FA is left out.
Bytes argumentBytes(std::vector<std::string> const& codes);

} // namespace contract

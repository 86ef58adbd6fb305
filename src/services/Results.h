// The results of services: which Java type each arrives as, and how it is read.
#pragma once

#include "src/callbacks/CallbackContext.h"
#include "src/messages/EnumCodes.h"
#include "src/values/HandleAccess.h"

#include <RTI/Enums.h>
#include <RTI/RTIambassador.h>
#include <RTI/RangeBounds.h>
#include <RTI/Typedefs.h>

#include <jni.h>

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <type_traits>

namespace tovu1516e {

// What the core's methods return.
enum class JavaType
{
   Void,
   Int,
   Boolean,
   Long,
   Double,
   Bytes,
   Ints,
   Longs,
   String
};

// JNI signatures of the methods without a message and with one.
struct MethodSignatures
{
   char const* bare;
   char const* withMessage;
};
constexpr MethodSignatures methodSignatures[] = {
   {"()V", "([B)V"},   {"()I", "([B)I"},   {"()Z", "([B)Z"},
   {"()J", "([B)J"},   {"()D", "([B)D"},   {"()[B", "([B)[B"},
   {"()[I", "([B)[I"}, {"()[J", "([B)[J"}, {"()Ljava/lang/String;", "([B)Ljava/lang/String;"}};

// What reading a result may need beside the value itself.
struct ResultContext
{
   JNIEnv* env;
   CallbackToken context; // where the ambassador's time factory is
};

// How a result of type T arrives and is read. Object results may be null; their reference is the caller's.
template <class T, class = void>
struct Result;

template <>
struct Result<void>
{
   static constexpr JavaType javaType = JavaType::Void;
   static void read(ResultContext const&, jvalue) noexcept {}
};

template <>
struct Result<bool>
{
   static constexpr JavaType javaType = JavaType::Boolean;
   static bool read(ResultContext const&, jvalue value) noexcept { return value.z != JNI_FALSE; }
};

template <>
struct Result<unsigned long>
{
   static constexpr JavaType javaType = JavaType::Long;
   static unsigned long read(ResultContext const&, jvalue value) noexcept
   {
      return static_cast<unsigned long>(value.j);
   }
};

template <>
struct Result<double>
{
   static constexpr JavaType javaType = JavaType::Double;
   static double read(ResultContext const&, jvalue value) noexcept { return value.d; }
};

template <>
struct Result<rti1516e::ResignAction>
{
   static constexpr JavaType javaType = JavaType::Int;
   static rti1516e::ResignAction read(ResultContext const&, jvalue value) noexcept
   {
      return static_cast<rti1516e::ResignAction>(value.i);
   }
};

template <class Enum>
struct Result<Enum, std::enable_if_t<EnumCodes<Enum>::exist>>
{
   static constexpr JavaType javaType = JavaType::Int;
   static Enum read(ResultContext const&, jvalue value) noexcept { return returnedEnumerator<Enum>(value.i); }
};

template <class Handle>
struct Result<Handle, std::enable_if_t<rti1516e::isHandle<Handle>>>
{
   static constexpr JavaType javaType = JavaType::Int;
   static Handle read(ResultContext const&, jvalue value) noexcept
   {
      return rti1516e::HandleAccess::make<Handle>(static_cast<std::uint32_t>(value.i));
   }
};

template <>
struct Result<std::wstring>
{
   static constexpr JavaType javaType = JavaType::String;
   static std::wstring read(ResultContext const& context, jvalue value);
};

template <class Handle>
struct Result<std::set<Handle>>
{
   static constexpr JavaType javaType = JavaType::Ints;
   static std::set<Handle> read(ResultContext const& context, jvalue value);
};

template <>
struct Result<rti1516e::RangeBounds>
{
   static constexpr JavaType javaType = JavaType::Longs;
   static rti1516e::RangeBounds read(ResultContext const& context, jvalue value);
};

template <>
struct Result<rti1516e::MessageRetractionHandle>
{
   static constexpr JavaType javaType = JavaType::Bytes;
   static rti1516e::MessageRetractionHandle read(ResultContext const& context, jvalue value);
};

// Times and intervals are decoded by the ambassador's time factory. Without one there is no time.
template <>
struct Result<std::auto_ptr<rti1516e::LogicalTime>>
{
   static constexpr JavaType javaType = JavaType::Bytes;
   static std::auto_ptr<rti1516e::LogicalTime> read(ResultContext const& context, jvalue value);
};

template <>
struct Result<std::auto_ptr<rti1516e::LogicalTimeInterval>>
{
   static constexpr JavaType javaType = JavaType::Bytes;
   static std::auto_ptr<rti1516e::LogicalTimeInterval> read(ResultContext const& context, jvalue value);
};

template <>
struct Result<rti1516e::TimeQueryReturn>
{
   static constexpr JavaType javaType = JavaType::Bytes;
   static rti1516e::TimeQueryReturn read(ResultContext const& context, jvalue value);
};

} // namespace tovu1516e

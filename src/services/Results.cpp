#include "src/services/Results.h"

#include "src/jvm/PinnedArray.h"
#include "src/jvm/WideText.h"
#include "src/messages/ShortBytes.h"

#include <RTI/Exception.h>

#include <algorithm>

namespace tovu1516e {
namespace {

[[noreturn]] void failReading()
{
   throw rti1516e::RTIinternalError(L"Cannot read the result of a service: the Java VM cannot pin it");
}

std::size_t lengthOf(JNIEnv* env, jarray array) noexcept
{
   return static_cast<std::size_t>(env->GetArrayLength(array));
}

// Pins the array and passes its elements to read, of which nothing but the library's own code may run.
template <class Element, class Read>
void readPinned(JNIEnv* env, jarray array, Read read)
{
   std::size_t const length = lengthOf(env, array);
   PinnedArray<Element> const pinned(env, array);
   if (pinned.get() == nullptr && length != 0) {
      env->ExceptionClear();
      failReading();
   }
   read(pinned.get(), length);
}

// Decodes the array by the ambassador's time factory, through one of its decode operations. The factory is
// the federation's own, and so runs on a copy.
template <class Time>
std::auto_ptr<Time> decodeTime(ResultContext const& context, jobject array,
                               std::auto_ptr<Time> (rti1516e::LogicalTimeFactory::*decode)(void*, size_t))
{
   CallbackContextReference const reference(context.context);
   // The ambassador may be gone, if a callback that the service evoked has destroyed it.
   TimeFactory const* const factory = array != nullptr && reference ? reference.timeFactory() : nullptr;
   if (factory == nullptr) {
      return std::auto_ptr<Time>();
   }
   auto* const bytes = static_cast<jbyteArray>(array);
   ShortBytes encoded;
   encoded.resize(lengthOf(context.env, bytes));
   context.env->GetByteArrayRegion(bytes, 0, static_cast<jsize>(encoded.size()),
                                   reinterpret_cast<jbyte*>(encoded.data()));
   return (factory->factory().*decode)(encoded.data(), encoded.size());
}

} // namespace

std::wstring Result<std::wstring>::read(ResultContext const& context, jvalue value)
{
   std::wstring text;
   if (!readJavaText(context.env, static_cast<jstring>(value.l), text)) {
      failReading();
   }
   return text;
}

template <class Handle>
std::set<Handle> Result<std::set<Handle>>::read(ResultContext const& context, jvalue value)
{
   std::set<Handle> handles;
   if (value.l != nullptr) {
      readPinned<jint>(
         context.env, static_cast<jarray>(value.l), [&](jint const* numbers, std::size_t count) {
            std::for_each(numbers, numbers + count, [&](jint number) {
               handles.insert(handles.end(),
                              rti1516e::HandleAccess::make<Handle>(static_cast<std::uint32_t>(number)));
            });
         });
   }
   return handles;
}

template struct Result<rti1516e::AttributeHandleSet>;
template struct Result<rti1516e::DimensionHandleSet>;

rti1516e::RangeBounds Result<rti1516e::RangeBounds>::read(ResultContext const& context, jvalue value)
{
   jlong bounds[2] = {0, 0};
   if (auto* const array = static_cast<jlongArray>(value.l); array != nullptr) {
      auto const count = std::min<jsize>(2, context.env->GetArrayLength(array));
      context.env->GetLongArrayRegion(array, 0, count, bounds);
   }
   return {static_cast<std::uint32_t>(bounds[0]), static_cast<std::uint32_t>(bounds[1])};
}

rti1516e::MessageRetractionHandle Result<rti1516e::MessageRetractionHandle>::read(
   ResultContext const& context, jvalue value)
{
   rti1516e::MessageRetractionHandle handle;
   if (value.l != nullptr) {
      readPinned<jbyte>(context.env, static_cast<jarray>(value.l),
                        [&](jbyte const* bytes, std::size_t length) {
                           handle = rti1516e::HandleAccess::decodeRetractionHandle(bytes, length);
                        });
   }
   return handle;
}

std::auto_ptr<rti1516e::LogicalTime> Result<std::auto_ptr<rti1516e::LogicalTime>>::read(
   ResultContext const& context, jvalue value)
{
   return decodeTime(context, value.l, &rti1516e::LogicalTimeFactory::decodeLogicalTime);
}

std::auto_ptr<rti1516e::LogicalTimeInterval> Result<std::auto_ptr<rti1516e::LogicalTimeInterval>>::read(
   ResultContext const& context, jvalue value)
{
   return decodeTime(context, value.l, &rti1516e::LogicalTimeFactory::decodeLogicalTimeInterval);
}

rti1516e::TimeQueryReturn Result<rti1516e::TimeQueryReturn>::read(ResultContext const& context, jvalue value)
{
   rti1516e::TimeQueryReturn answer;
   answer.timeIsValid = value.l != nullptr;
   answer.time = Result<std::auto_ptr<rti1516e::LogicalTime>>::read(context, value);
   return answer;
}

} // namespace tovu1516e

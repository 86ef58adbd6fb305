#include "bench/Floor.h"

#include "src/values/BigEndian.h"
#include "src/values/HandleAccess.h"
#include "src/values/VariableLengthRecord.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace bench {
namespace {

using namespace rti1516e;

JavaVM* theVM()
{
   JavaVM* vm = nullptr;
   jsize count = 0;
   if (JNI_GetCreatedJavaVMs(&vm, 1, &count) != JNI_OK || count != 1) {
      throw std::runtime_error("there is no Java VM");
   }
   return vm;
}

template <class Id>
Id require(Id id, char const* what)
{
   if (id == nullptr) {
      throw std::runtime_error(what);
   }
   return id;
}

JNIEnv* attach(JavaVM* vm)
{
   void* env = nullptr;
   vm->AttachCurrentThread(&env, nullptr);
   return static_cast<JNIEnv*>(env);
}

// A core's ambassador, and its method.
std::pair<jobject, jmethodID> peerAndMethod(char const* method, char const* signature)
{
   JNIEnv* const env = environment();
   jclass const cls = require(env->FindClass("morva/tovu1516e/RTIambassadorC2007"), "no core");
   jmethodID const constructor = require(env->GetMethodID(cls, "<init>", "([B)V"), "no constructor");
   return {env->NewGlobalRef(env->NewObject(cls, constructor, nullptr)),
           require(env->GetMethodID(cls, method, signature), method)};
}

template <class Fill>
jbyteArray newArray(JNIEnv* env, std::size_t size, Fill fill)
{
   jbyteArray const array = env->NewByteArray(static_cast<jsize>(size));
   void* const storage = env->GetPrimitiveArrayCritical(array, nullptr);
   fill(static_cast<unsigned char*>(storage));
   env->ReleasePrimitiveArrayCritical(array, storage, 0);
   return array;
}

std::wstring textOf(JNIEnv* env, jstring javaText)
{
   std::wstring text(static_cast<std::size_t>(env->GetStringLength(javaText)), L'\0');
   jchar const* const units = env->GetStringCritical(javaText, nullptr);
   for (std::size_t i = 0; i < text.size(); ++i) {
      text[i] = static_cast<wchar_t>(units[i]);
   }
   env->ReleaseStringCritical(javaText, units);
   return text;
}

void requireNoException(JNIEnv* env)
{
   if (env->ExceptionCheck() != JNI_FALSE) {
      throw std::runtime_error("a Java exception");
   }
}

FederateAmbassador* federateToCall = nullptr;
LogicalTimeFactory* factoryToAsk = nullptr;

unsigned char* pin(JNIEnv* env, jbyteArray message)
{
   return static_cast<unsigned char*>(env->GetPrimitiveArrayCritical(message, nullptr));
}

void JNICALL pinAndUnpin(JNIEnv* env, jclass, jbyteArray message)
{
   env->ReleasePrimitiveArrayCritical(message, pin(env, message), 0);
}

void JNICALL time(JNIEnv* env, jclass, jbyteArray message)
{
   unsigned char* const bytes = pin(env, message);
   char encoded[8];
   std::memcpy(encoded, bytes + 8, sizeof encoded);
   env->ReleasePrimitiveArrayCritical(message, bytes, 0);
   federateToCall->timeAdvanceGrant(*factoryToAsk->decodeLogicalTime(encoded, sizeof encoded));
}

// The least that makes a std::map of the values: one pass, each value put where it will stand.
void JNICALL values(JNIEnv* env, jclass, jbyteArray message)
{
   unsigned char* const storage = pin(env, message);
   unsigned char const* from = storage + 8;
   auto const word = [&from] {
      from += 4;
      return loadBigEndian<std::uint32_t>(from - 4);
   };
   auto const object = HandleAccess::make<ObjectInstanceHandle>(word());
   AttributeHandleValueMap map;
   for (std::uint32_t count = word(); count > 0; --count) {
      auto const attribute = HandleAccess::make<AttributeHandle>(word());
      std::uint32_t const size = word();
      map.try_emplace(map.end(), attribute, from, size);
      from += size;
   }
   std::uint32_t const size = word();
   VariableLengthData const tag(from, size);
   env->ReleasePrimitiveArrayCritical(message, storage, 0);
   federateToCall->reflectAttributeValues(object, map, tag, RECEIVE, RELIABLE, SupplementalReflectInfo());
}

} // namespace

JNIEnv* environment() { return attach(theVM()); }

ServiceFloor::ServiceFloor(char const* method, char const* signature, std::size_t messageSize)
   : _vm(theVM()), _bytes(messageSize, 'x'), _hasMessage(std::strncmp(signature, "()", 2) != 0)
{
   std::tie(_peer, _method) = peerAndMethod(method, signature);
}

inline jbyteArray ServiceFloor::newMessage(JNIEnv* env) const
{
   return newArray(env, _bytes.size(),
                   [this](unsigned char* to) { std::memcpy(to, _bytes.data(), _bytes.size()); });
}

void ServiceFloor::callVoid() const
{
   JNIEnv* const env = attach(_vm);
   if (!_hasMessage) {
      env->CallVoidMethod(_peer, _method);
      return;
   }
   jbyteArray const message = newMessage(env);
   env->CallVoidMethod(_peer, _method, message);
   env->DeleteLocalRef(message);
}

jint ServiceFloor::callInt() const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env);
   jint const result = env->CallIntMethod(_peer, _method, message);
   env->DeleteLocalRef(message);
   return result;
}

std::wstring ServiceFloor::callText() const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env);
   auto* const text = static_cast<jstring>(env->CallObjectMethod(_peer, _method, message));
   env->DeleteLocalRef(message);
   std::wstring result = textOf(env, text);
   env->DeleteLocalRef(text);
   return result;
}

void ServiceFloor::callMessageHandle() const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env);
   auto* const array = static_cast<jbyteArray>(env->CallObjectMethod(_peer, _method, message));
   env->DeleteLocalRef(message);
   env->ReleasePrimitiveArrayCritical(array, pin(env, array), 0);
   env->DeleteLocalRef(array);
}

std::auto_ptr<LogicalTime> ServiceFloor::callTime(LogicalTimeFactory& factory) const
{
   JNIEnv* const env = attach(_vm);
   auto* const array = static_cast<jbyteArray>(env->CallObjectMethod(_peer, _method));
   char encoded[8];
   env->GetByteArrayRegion(array, 0, sizeof encoded, reinterpret_cast<jbyte*>(encoded));
   env->DeleteLocalRef(array);
   return factory.decodeLogicalTime(encoded, sizeof encoded);
}

ServiceByHand::ServiceByHand(char const* method, char const* signature) : _vm(theVM())
{
   std::tie(_peer, _method) = peerAndMethod(method, signature);
}

void ServiceByHand::callVoid() const
{
   JNIEnv* const env = attach(_vm);
   env->CallVoidMethod(_peer, _method);
   requireNoException(env);
}

jint ServiceByHand::callInt(std::wstring const& text) const
{
   JNIEnv* const env = attach(_vm);
   std::uint32_t seen = 0;
   for (wchar_t const character : text) {
      seen |= static_cast<std::uint32_t>(character);
   }
   if (seen > 0xFFFF) {
      throw std::runtime_error("not a text of one unit a character");
   }
   jbyteArray const message = newArray(env, 4 + 2 * text.size(), [&text](unsigned char* to) {
      storeBigEndian(to, static_cast<std::uint32_t>(text.size()));
      for (std::size_t i = 0; i < text.size(); ++i) {
         storeBigEndian(to + 4 + 2 * i, static_cast<std::uint16_t>(text[i]));
      }
   });
   jint const result = env->CallIntMethod(_peer, _method, message);
   env->DeleteLocalRef(message);
   requireNoException(env);
   return result;
}

std::wstring ServiceByHand::callText(ObjectInstanceHandle object) const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message =
      newArray(env, 4, [object](unsigned char* to) { storeBigEndian(to, HandleAccess::number(object)); });
   auto* const text = static_cast<jstring>(env->CallObjectMethod(_peer, _method, message));
   env->DeleteLocalRef(message);
   requireNoException(env);
   std::wstring result = textOf(env, text);
   env->DeleteLocalRef(text);
   return result;
}

std::auto_ptr<LogicalTime> ServiceByHand::callTime(LogicalTimeFactory& factory) const
{
   JNIEnv* const env = attach(_vm);
   auto* const array = static_cast<jbyteArray>(env->CallObjectMethod(_peer, _method));
   requireNoException(env);
   char encoded[16];
   jsize const size = std::min<jsize>(env->GetArrayLength(array), sizeof encoded);
   env->GetByteArrayRegion(array, 0, size, reinterpret_cast<jbyte*>(encoded));
   env->DeleteLocalRef(array);
   return factory.decodeLogicalTime(encoded, static_cast<std::size_t>(size));
}

namespace {

// The message of a map of values under a handle, and further bytes behind it.
template <class Handle, class Map>
jbyteArray newMessage(JNIEnv* env, Handle handle, Map const& values, void const* further,
                      std::size_t furtherSize)
{
   using Access = VariableLengthDataAccess;
   std::size_t size = 4 + 4 + 4 + furtherSize;
   for (auto const& entry : values) {
      size += 8 + Access::size(entry.second);
   }
   return newArray(env, size, [&](unsigned char* to) {
      auto const put = [&to](std::uint32_t word) {
         storeBigEndian(to, word);
         to += 4;
      };
      put(HandleAccess::number(handle));
      put(static_cast<std::uint32_t>(values.size()));
      for (auto const& entry : values) {
         put(HandleAccess::number(entry.first));
         put(Access::size(entry.second));
         std::memcpy(to, Access::data(entry.second), Access::size(entry.second));
         to += Access::size(entry.second);
      }
      put(0);
      if (furtherSize != 0) {
         std::memcpy(to, further, furtherSize);
      }
   });
}

} // namespace

template <class Handle, class Map>
void ServiceByHand::send(Handle handle, Map const& values) const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env, handle, values, nullptr, 0);
   env->CallVoidMethod(_peer, _method, message);
   env->DeleteLocalRef(message);
   requireNoException(env);
}

template <class Handle, class Map>
std::uint32_t ServiceByHand::send(Handle handle, Map const& values, LogicalTime const& time) const
{
   JNIEnv* const env = attach(_vm);
   VariableLengthData const encoded = time.encode();
   jbyteArray const message = newMessage(env, handle, values, encoded.data(), encoded.size());
   auto* const array = static_cast<jbyteArray>(env->CallObjectMethod(_peer, _method, message));
   env->DeleteLocalRef(message);
   requireNoException(env);
   auto const length = static_cast<std::size_t>(env->GetArrayLength(array));
   unsigned char* const bytes = pin(env, array);
   auto const result = length < 4 ? 0 : loadBigEndian<std::uint32_t>(bytes);
   env->ReleasePrimitiveArrayCritical(array, bytes, 0);
   env->DeleteLocalRef(array);
   return result;
}

template void ServiceByHand::send(ObjectInstanceHandle, AttributeHandleValueMap const&) const;
template void ServiceByHand::send(InteractionClassHandle, ParameterHandleValueMap const&) const;
template std::uint32_t ServiceByHand::send(ObjectInstanceHandle, AttributeHandleValueMap const&,
                                           LogicalTime const&) const;

CallbackLoop::CallbackLoop(char const* loop, std::vector<unsigned char> const& message)
{
   JNIEnv* const env = environment();
   _class = static_cast<jclass>(env->NewGlobalRef(require(env->FindClass("floor/Callbacks"), "no loops")));
   _loop = require(env->GetStaticMethodID(_class, loop, "([BI)V"), loop);
   jbyteArray const array = env->NewByteArray(static_cast<jsize>(message.size()));
   env->SetByteArrayRegion(array, 0, static_cast<jsize>(message.size()),
                           reinterpret_cast<jbyte const*>(message.data()));
   _message = static_cast<jbyteArray>(env->NewGlobalRef(array));
}

void CallbackLoop::run() const
{
   environment()->CallStaticVoidMethod(_class, _loop, _message, static_cast<jint>(times));
}

RoundTrip::RoundTrip() : _vm(theVM())
{
   JNIEnv* const env = environment();
   _class =
      static_cast<jclass>(env->NewGlobalRef(require(env->FindClass("floor/RoundTrip"), "no round trip")));
   static char name[] = "callback";
   static char signature[] = "([B)V";
   JNINativeMethod const native{name, signature, reinterpret_cast<void*>(&pinAndUnpin)};
   env->RegisterNatives(_class, &native, 1);
   _service = require(env->GetStaticMethodID(_class, "service", signature), "no service");
   jsize const envelope = 12; // what every callback brings along
   _message = static_cast<jbyteArray>(env->NewGlobalRef(env->NewByteArray(envelope)));
}

void RoundTrip::run() { attach(_vm)->CallStaticVoidMethod(_class, _service, _message); }

void registerFloorNatives(FederateAmbassador& federate, LogicalTimeFactory& factory)
{
   federateToCall = &federate;
   factoryToAsk = &factory;
   JNIEnv* const env = environment();
   static char signature[] = "([B)V";
   static char names[][16] = {"pinAndUnpin", "time", "values"};
   JNINativeMethod const natives[] = {{names[0], signature, reinterpret_cast<void*>(&pinAndUnpin)},
                                      {names[1], signature, reinterpret_cast<void*>(&time)},
                                      {names[2], signature, reinterpret_cast<void*>(&values)}};
   env->RegisterNatives(require(env->FindClass("floor/Callbacks"), "no loops"), natives, 3);
}

} // namespace bench

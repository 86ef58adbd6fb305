#include "bench/Floor.h"

#include "api/BigEndian.h"
#include "api/HandleAccess.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>

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

JNIEnv* attach(JavaVM* vm)
{
   void* env = nullptr;
   vm->AttachCurrentThread(&env, nullptr);
   return static_cast<JNIEnv*>(env);
}

} // namespace

JNIEnv* environment() { return attach(theVM()); }

ServiceFloor::ServiceFloor(char const* method, char const* signature, std::size_t messageSize)
   : _vm(theVM()), _bytes(messageSize, 'x'), _hasMessage(std::strncmp(signature, "()", 2) != 0)
{
   JNIEnv* const env = environment();
   jclass const cls = require(env->FindClass("morva/tovu1516e/RTIambassadorC2007"), "no core");
   jmethodID const constructor = require(env->GetMethodID(cls, "<init>", "([B)V"), "no constructor");
   _peer = env->NewGlobalRef(env->NewObject(cls, constructor, nullptr));
   _method = require(env->GetMethodID(cls, method, signature), method);
}

inline jbyteArray ServiceFloor::newMessage(JNIEnv* env) const
{
   if (!_hasMessage) {
      return nullptr;
   }
   jbyteArray const array = env->NewByteArray(static_cast<jsize>(_bytes.size()));
   void* const storage = env->GetPrimitiveArrayCritical(array, nullptr);
   std::memcpy(storage, _bytes.data(), _bytes.size());
   env->ReleasePrimitiveArrayCritical(array, storage, 0);
   return array;
}

void ServiceFloor::callVoid() const
{
   JNIEnv* const env = attach(_vm);
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
   std::wstring result(static_cast<std::size_t>(env->GetStringLength(text)), L'\0');
   jchar const* const units = env->GetStringCritical(text, nullptr);
   for (std::size_t i = 0; i < result.size(); ++i) {
      result[i] = static_cast<wchar_t>(units[i]);
   }
   env->ReleaseStringCritical(text, units);
   env->DeleteLocalRef(text);
   return result;
}

void ServiceFloor::callMessageHandle() const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env);
   jobject const result = env->CallObjectMethod(_peer, _method, message);
   env->DeleteLocalRef(message);
   auto* const array = static_cast<jbyteArray>(result);
   env->ReleasePrimitiveArrayCritical(array, pin(env, array), 0);
   env->DeleteLocalRef(result);
}

std::auto_ptr<LogicalTime> ServiceFloor::callTime(LogicalTimeFactory& factory) const
{
   JNIEnv* const env = attach(_vm);
   jbyteArray const message = newMessage(env);
   auto* const array = static_cast<jbyteArray>(env->CallObjectMethod(_peer, _method, message));
   if (message != nullptr) {
      env->DeleteLocalRef(message);
   }
   char encoded[8];
   env->GetByteArrayRegion(array, 0, sizeof encoded, reinterpret_cast<jbyte*>(encoded));
   env->DeleteLocalRef(array);
   return factory.decodeLogicalTime(encoded, sizeof encoded);
}

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

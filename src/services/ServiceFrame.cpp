#include "src/services/ServiceFrame.h"

#include "src/jvm/Assertion.h"
#include "src/jvm/ClassPathAdvice.h"
#include "src/jvm/JavaVMHost.h"

#include <RTI/Exception.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <limits>

namespace tovu1516e {
namespace {

// Filled at each construction of an ambassador, with the same values every time.
std::array<std::atomic<jmethodID>, services::count> methodTable{};

constexpr Method const* methods[] = {
#define SERVICE(name, ...) &services::name,
#include "src/services/Services.def"
};

constexpr MessageSize largestMessage = std::numeric_limits<jsize>::max();

[[noreturn]] void failMessage(MessageSize size, std::wstring const& why)
{
   throw rti1516e::RTIinternalError(L"Cannot make a message of " + std::to_wstring(size) + L" bytes: " + why);
}

jbyteArray newArray(JNIEnv* env, MessageSize size)
{
   if (size > largestMessage) {
      failMessage(size, L"a Java array holds up to " + std::to_wstring(largestMessage));
   }
   jbyteArray const array = env->NewByteArray(static_cast<jsize>(size));
   if (array == nullptr) {
      failMessage(size, clearJavaException(env));
   }
   return array;
}

} // namespace

OutgoingMessage::OutgoingMessage(Size size, JNIEnv* env)
   : _array(env, newArray(env, size.bytes)), _storage(env, _array.get())
{
   if (_storage.get() == nullptr) {
      env->ExceptionClear();
      failMessage(size.bytes, L"the Java VM cannot pin the array");
   }
}

ServiceFrame::ServiceFrame() : _env(attachCurrentThread()) {}

jvalue ServiceFrame::call(jobject peer, Method const& method, jbyteArray message) const
{
   jmethodID const id = methodTable[method.index].load(std::memory_order_relaxed);
   jvalue argument{};
   argument.l = message;
   jvalue result{};
   switch (method.result) {
   case JavaType::Void:
      _env->CallVoidMethodA(peer, id, &argument);
      break;
   case JavaType::Int:
      result.i = _env->CallIntMethodA(peer, id, &argument);
      break;
   case JavaType::Boolean:
      result.z = _env->CallBooleanMethodA(peer, id, &argument);
      break;
   case JavaType::Long:
      result.j = _env->CallLongMethodA(peer, id, &argument);
      break;
   case JavaType::Double:
      result.d = _env->CallDoubleMethodA(peer, id, &argument);
      break;
   case JavaType::Bytes:
   case JavaType::Ints:
   case JavaType::Longs:
   case JavaType::String:
      result.l = _env->CallObjectMethodA(peer, id, &argument);
      break;
   }
   if (_env->ExceptionCheck() != JNI_FALSE) {
      throwPendingJavaException(_env, method.exceptions);
   }
   return result;
}

void callIgnoringExceptions(JNIEnv* env, jobject peer, Method const& method) noexcept
{
   env->CallVoidMethodA(peer, methodTable[method.index].load(std::memory_order_relaxed), nullptr);
   env->ExceptionClear();
}

void fillMethodTable(JNIEnv* env, jclass ambassadorClass)
{
   for (Method const* const method : methods) {
      jmethodID const id = env->GetMethodID(ambassadorClass, method->name, method->signature);
      if (id == nullptr) {
         env->ExceptionClear();
         std::fputs(otherCoreAdvice().c_str(), stderr);
         std::fprintf(stderr, "Cannot locate %s.\n", method->name);
         failAssertion("id != 0", "gen/cpp/RTIambassadorC", __LINE__);
      }
      methodTable[method->index].store(id, std::memory_order_relaxed);
   }
}

} // namespace tovu1516e

#include "src/jvm/JavaException.h"

#include "src/jvm/WideText.h"

#include <iostream>

namespace tovu1516e {
namespace {

// Calls a method of the exception that takes nothing and gives a string. What the method itself raises counts
// as no string, and so does a string that cannot be read.
bool callForText(JNIEnv* env, jthrowable exception, char const* method, std::wstring& text)
{
   LocalReference<jclass> const cls(env, env->GetObjectClass(exception));
   jmethodID const id = env->GetMethodID(cls.get(), method, "()Ljava/lang/String;");
   LocalReference<jstring> const javaText(
      env, id == nullptr ? nullptr : static_cast<jstring>(env->CallObjectMethod(exception, id)));
   if (env->ExceptionCheck() != JNI_FALSE) {
      env->ExceptionClear();
      return false;
   }
   return javaText && readJavaText(env, javaText.get(), text);
}

std::wstring descriptionOf(JNIEnv* env, jthrowable exception)
{
   std::wstring text;
   if (!callForText(env, exception, "toString", text)) {
      text = L"A Java exception that cannot be described";
   }
   return text;
}

} // namespace

void printJavaException(JNIEnv* env) noexcept
{
   if (env->ExceptionCheck() != JNI_FALSE) {
      env->ExceptionDescribe();
      env->ExceptionClear();
   }
}

LocalReference<jclass> findClass(JNIEnv* env, char const* name, Complaint complaint)
{
   jclass const found = env->FindClass(name);
   if (complaint == Complaint::Printed) {
      printJavaException(env);
   } else if (found == nullptr) {
      env->ExceptionClear();
   }
   return {env, found};
}

std::wstring messageOf(JNIEnv* env, jthrowable exception)
{
   std::wstring text;
   return callForText(env, exception, "getMessage", text) ? text : descriptionOf(env, exception);
}

bool isJavaExceptionOf(JNIEnv* env, jthrowable exception, char const* className, std::wstring& message)
{
   auto const cls = findClass(env, className);
   if (!cls || env->IsInstanceOf(exception, cls.get()) == JNI_FALSE) {
      return false;
   }
   message = messageOf(env, exception);
   return true;
}

void throwUnhandledJavaException(JNIEnv* env, jthrowable exception)
{
   std::cerr << "Unhandled exception" << std::endl;
   LocalReference<jclass> const cls(env, env->GetObjectClass(exception));
   if (jmethodID const print = env->GetMethodID(cls.get(), "printStackTrace", "()V"); print != nullptr) {
      env->CallVoidMethod(exception, print);
   }
   env->ExceptionClear();
   throw rti1516e::RTIinternalError(descriptionOf(env, exception));
}

void throwPendingJavaException(JNIEnv* env, JavaExceptions foreseen)
{
   LocalReference<jthrowable> const exception(env, env->ExceptionOccurred());
   env->ExceptionClear();
   std::wstring message;
   for (std::size_t i = 0; i < foreseen.count; ++i) {
      JavaException const& candidate = foreseen.first[i];
      if (isJavaExceptionOf(env, exception.get(), candidate.javaClass, message)) {
         candidate.raise(message);
      }
   }
   throwUnhandledJavaException(env, exception.get());
}

std::wstring clearJavaException(JNIEnv* env)
{
   LocalReference<jthrowable> const exception(env, env->ExceptionOccurred());
   if (!exception) {
      return L"";
   }
   env->ExceptionClear();
   return descriptionOf(env, exception.get());
}

void throwToJava(JNIEnv* env, char const* jniText) noexcept
{
   env->ExceptionClear(); // what the federate's own use of Java left would be in the way
   LocalReference<jclass> const cls(env, env->FindClass(javaClassOf<rti1516e::FederateInternalError>));
   if (cls) { // else the VM's own complaint is pending, and tells Java just as well that the callback failed
      env->ThrowNew(cls.get(), jniText);
   }
}

} // namespace tovu1516e

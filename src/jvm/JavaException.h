// Java exceptions and the interface's.
#pragma once

#include "src/jvm/LocalReference.h"

#include <RTI/Exception.h>

#include <jni.h>

#include <string>
#include <utility>

namespace tovu1516e {

// A Java exception class and what throws the exception of the interface that stands for it.
struct JavaException
{
   char const* javaClass;
   void (*raise)(std::wstring const& message);
};

// The two are of the same name.
template <class Exception>
inline constexpr char const* javaClassOf = nullptr;

#define RTI_JAVA_CLASS_OF(Name) \
   template <>                  \
   inline constexpr char const* javaClassOf<rti1516e::Name> = "hla/rti1516e/exceptions/" #Name;
RTI_FOR_EACH_EXCEPTION(RTI_JAVA_CLASS_OF)
#undef RTI_JAVA_CLASS_OF

template <class Exception>
constexpr JavaException javaException{javaClassOf<Exception>,
                                      [](std::wstring const& message) -> void { throw Exception(message); }};

// The exceptions of a service, in the order they are tested.
struct JavaExceptions
{
   JavaException const* first;
   std::size_t count;
};

// Prints the pending Java exception, if there is one, to the standard error stream, and clears it.
void printJavaException(JNIEnv* env) noexcept;

// What becomes of the VM's complaint that it cannot load a class.
enum class Complaint
{
   Forgotten,
   Printed
};

// A class by its JNI path; null if the VM cannot load it. No Java exception is pending afterwards.
LocalReference<jclass> findClass(JNIEnv* env, char const* name, Complaint complaint = Complaint::Forgotten);

// The message of a Java exception; what its toString gives where it has none. No Java exception may be
// pending, and none is afterwards.
std::wstring messageOf(JNIEnv* env, jthrowable exception);

// Tells whether the exception is of the class, and if so gives its message. A class that the VM cannot load
// is one that the exception is not of.
bool isJavaExceptionOf(JNIEnv* env, jthrowable exception, char const* className, std::wstring& message);

// Tells of an exception that no service foresees, with its stack trace, on the standard error stream and
// throws RTIinternalError with its text.
[[noreturn]] void throwUnhandledJavaException(JNIEnv* env, jthrowable exception);

// Clears the pending Java exception and throws what stands for it among the given ones.
[[noreturn]] void throwPendingJavaException(JNIEnv* env, JavaExceptions foreseen);

// Clears the pending Java exception, if there is one, and returns its text.
std::wstring clearJavaException(JNIEnv* env);

// Makes FederateInternalError pending in the calling Java thread. The text is in JNI's own encoding.
void throwToJava(JNIEnv* env, char const* jniText) noexcept;

} // namespace tovu1516e

// The Java VM that the infrastructure's core runs in.
#pragma once

#include <jni.h>

#include <string>

namespace tovu1516e {

// Makes sure that the process has a Java VM, joining one that runs or creating one, and returns the calling
// thread's environment. Throws RTIinternalError if that fails; the next call tries again. The first creation
// must not race with another. The child of a fork has no VM and cannot have one: a process can create only
// one, and what it got with the fork is of no use.
JNIEnv* acquireJNIEnv();

// The calling thread's environment in the VM that acquireJNIEnv has got; the thread stays attached for good.
// Throws RTIinternalError if there is no VM, or none any more, be it that the application has destroyed it or
// that this process is the child of a fork.
JNIEnv* attachCurrentThread();

// The text of a JNI status code.
std::wstring jniErrorText(jint code);

} // namespace tovu1516e

// The Java VM that the infrastructure's core runs in.
#pragma once

#include <jni.h>

#include <string>

namespace tovu1516e {

// Makes sure that the process has a Java VM, joining one that runs or creating one, and returns the calling
// thread's environment. Throws RTIinternalError if that fails; the next call tries again. Any
// number of threads may call at once. The child of a fork has no VM and cannot have one: a process can create
// only one, and what it got with the fork is of no use.
JNIEnv* acquireJNIEnv();

// The calling thread's environment in the VM that acquireJNIEnv has got. A thread that this attaches is
// detached when it ends. Throws RTIinternalError if there is no VM, or none any more, be it that the
// application has destroyed it or that this process is the child of a fork.
JNIEnv* attachCurrentThread();

// Whether a thread that cannot be attached finds no VM any more, so that what waits for Java waits for good.
// If not, the VM goes on, and only has no memory for the thread, for example. To be asked only after a
// failure.
bool isVMGone() noexcept;

// The text of a JNI status code.
std::wstring jniErrorText(jint code);

} // namespace tovu1516e

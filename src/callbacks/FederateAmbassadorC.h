// The natives through which the core delivers callbacks.
#pragma once

#include <jni.h>

namespace tovu1516e {

// Registers the natives with the core's class. What goes wrong is only told on the standard error stream.
void registerCallbackNatives(JNIEnv* env);

// Whether callbacks contain what is neither an exception of the interface, a std::exception nor a
// std::string.
void setCatchAllInCallbacks(bool catchAll) noexcept;

} // namespace tovu1516e

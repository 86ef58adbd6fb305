// Local references to Java objects. A thread that the federate made never returns to Java, so that nothing
// frees its local references but the code that got them.
#pragma once

#include <jni.h>

namespace tovu1516e {

template <class Object>
class LocalReference
{
public:
   LocalReference(JNIEnv* env, Object object) noexcept : _env(env), _object(object) {}
   ~LocalReference() { reset(); }
   LocalReference(LocalReference const&) = delete;
   LocalReference& operator=(LocalReference const&) = delete;

   Object get() const noexcept { return _object; }
   explicit operator bool() const noexcept { return _object != nullptr; }

   // Deleting a reference is allowed while a Java exception is pending.
   void reset() noexcept
   {
      if (_object != nullptr) {
         _env->DeleteLocalRef(_object);
         _object = nullptr;
      }
   }

private:
   JNIEnv* _env;
   Object _object;
};

} // namespace tovu1516e

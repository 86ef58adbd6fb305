// The storage of a Java array, pinned in place. While it is, the garbage collector may stand still for every
// thread: no JNI call and no code but the library's own may run.
#pragma once

#include <jni.h>

namespace tovu1516e {

template <class Element>
class PinnedArray
{
public:
   PinnedArray(JNIEnv* env, jarray array) noexcept
      : _env(env),
        _array(array),
        _elements(static_cast<Element*>(env->GetPrimitiveArrayCritical(array, nullptr)))
   {}
   ~PinnedArray() { release(); }
   PinnedArray(PinnedArray const&) = delete;
   PinnedArray& operator=(PinnedArray const&) = delete;

   // Null if the VM could not pin the array.
   Element* get() const noexcept { return _elements; }

   void release() noexcept
   {
      if (_elements != nullptr) {
         _env->ReleasePrimitiveArrayCritical(_array, _elements, 0);
         _elements = nullptr;
      }
   }

private:
   JNIEnv* _env;
   jarray _array;
   Element* _elements;
};

} // namespace tovu1516e

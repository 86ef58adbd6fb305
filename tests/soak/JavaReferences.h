// How many references into the Java heap native code holds in this process, as the VM itself counts them.
#pragma once

#include <jni.h>

#include <jvmti.h>
#include <ostream>

namespace soak {

class JavaReferences
{
public:
   // The VM must be running, and the calling thread be attached.
   JavaReferences()
   {
      JavaVM* vm = nullptr;
      jsize count = 0;
      JNI_GetCreatedJavaVMs(&vm, 1, &count);
      vm->GetEnv(reinterpret_cast<void**>(&_tools), JVMTI_VERSION_11);
      jvmtiCapabilities capabilities{};
      capabilities.can_tag_objects = 1;
      _tools->AddCapabilities(&capabilities);
   }

   // The local ones are those of threads outside Java: what threads inside have, they give back when they
   // leave.
   struct Count
   {
      long globals = 0;
      long locals = 0;
   };

   // After a collection, so that what is only waiting for one is not taken for something lost.
   Count count() const
   {
      _tools->ForceGarbageCollection();
      Count found;
      jvmtiHeapCallbacks callbacks{};
      callbacks.heap_reference_callback = &visit;
      _tools->FollowReferences(0, nullptr, nullptr, &callbacks, &found);
      return found;
   }

private:
   // Called for each root of the heap; what hangs on it is of no interest.
   static jint JNICALL visit(jvmtiHeapReferenceKind kind, jvmtiHeapReferenceInfo const* info, jlong, jlong,
                             jlong, jlong*, jlong*, jint, void* found)
   {
      auto& count = *static_cast<Count*>(found);
      count.globals += kind == JVMTI_HEAP_REFERENCE_JNI_GLOBAL ? 1 : 0;
      count.locals += kind == JVMTI_HEAP_REFERENCE_JNI_LOCAL && info->jni_local.depth == 0 ? 1 : 0;
      return 0;
   }

   jvmtiEnv* _tools = nullptr;
};

} // namespace soak

#include "src/jvm/JavaVMHost.h"

#include "src/jvm/SetupFailure.h"
#include "src/jvm/VMOptions.h"
#include "src/jvm/X87ControlWord.h"

#include <RTI/Exception.h>

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <pthread.h>
#include <vector>

namespace tovu1516e {
namespace {

// Set once, when the VM is ready for use. Every service reads it to attach its thread.
std::atomic<JavaVM*> javaVM{nullptr};

// Whether a VM is there, or on its way. In the child of a fork nothing of it runs any more, and whoever
// entered it would wait for good.
std::atomic<bool> isStarted{false};
std::atomic<bool> isLostByFork{false};

void loseVM() noexcept
{
   if (isStarted.load(std::memory_order_relaxed)) {
      isLostByFork.store(true, std::memory_order_relaxed);
      javaVM.store(nullptr, std::memory_order_relaxed);
   }
}

// From the end of main, or from when Java ends the process: a VM that is ending holds on to every thread that
// enters it.
std::atomic<bool> isProcessEnding{false};

// Whether the library itself has attached this thread, and is to detach it when it ends. The key has a value
// on such threads, for the sake of its destructor; the flag costs less to ask for.
[[gnu::tls_model("initial-exec")]] thread_local bool isAttachedHere = false;
pthread_key_t attachedHere;

// At the end of such a thread, behind the destructors of its thread-local objects, which may call services.
void detachEndingThread(void*) noexcept
{
   isAttachedHere = false;
   if (!isVMGone()) {
      javaVM.load(std::memory_order_acquire)->DetachCurrentThread();
   }
}

void detachAtThreadEnd() noexcept
{
   isAttachedHere = true;
   pthread_setspecific(attachedHere, &attachedHere); // any value will do
}

void watchProcess()
{
   static bool watching = false;
   if (!watching &&
       (pthread_key_create(&attachedHere, detachEndingThread) != 0 ||
        std::atexit([] { isProcessEnding = true; }) != 0 || pthread_atfork(nullptr, nullptr, loseVM) != 0)) {
      failSetup(L"Cannot watch for the ends of threads, and for forks and the end of the process\n");
   }
   watching = true;
}

// A thread that the VM or the application has attached is left as it is. The VM is asked each time, because
// the application may detach any thread; to attach one that is attached costs less than to ask whether it is.
jint attachTo(JavaVM* vm, JNIEnv*& env) noexcept
{
   void* found = nullptr;
   jint code = isAttachedHere ? JNI_EDETACHED : vm->GetEnv(&found, JNI_VERSION_1_2);
   if (code != JNI_OK) {
      code = vm->AttachCurrentThread(&found, nullptr);
      if (code >= 0 && !isAttachedHere) {
         detachAtThreadEnd();
      }
   }
   env = static_cast<JNIEnv*>(found);
   return code;
}

// What the VM expects of the x87 unit: all exceptions masked, rounding to nearest, 53-bit precision,
// projective infinity, denormals kept.
void setControlWordForVM() noexcept
{
   constexpr std::uint32_t word = 0x9001F;
   control87(word, 0x8001F);
   control87(word, 0x300);
   control87(word, 0x3070000);
}

constexpr std::uint32_t wholeControlWord = 0x30F031F;

[[noreturn]] void failWith(wchar_t const* what, jint code)
{
   failSetup(what + (L" Error: " + jniErrorText(code)) + L"\n");
}

JavaVM* joinVM()
{
   JavaVM* vm = nullptr;
   jsize count = 0;
   if (jint const code = JNI_GetCreatedJavaVMs(&vm, 1, &count); code < 0) {
      failWith(L"Cannot check for existing JVM.", code);
   }
   if (count < 1) {
      return nullptr;
   }
   JNIEnv* env = nullptr;
   if (jint const code = attachTo(vm, env); code < 0) {
      failWith(L"Cannot attach to existing JVM.", code);
   }
   return vm;
}

JavaVM* createVM()
{
   auto texts = vmOptions();
   std::vector<JavaVMOption> options;
   options.reserve(texts.size());
   for (auto& text : texts) {
      options.push_back(JavaVMOption{text.data(), nullptr});
   }
   JavaVMInitArgs arguments{};
   arguments.version = JNI_VERSION_1_2;
   arguments.nOptions = static_cast<jint>(options.size());
   arguments.options = options.data();
   // Options that are switched off are passed as empty texts, which the VM would refuse otherwise.
   arguments.ignoreUnrecognized = JNI_TRUE;

   JavaVM* vm = nullptr;
   void* env = nullptr;
   if (jint const code = JNI_CreateJavaVM(&vm, &env, &arguments); code < 0) {
      failWith(L"Cannot create JVM.", code);
   }
   detachAtThreadEnd();
   return vm;
}

JavaVM* joinOrCreateVM()
{
   JavaVM* const vm = joinVM();
   return vm != nullptr ? vm : createVM();
}

// Of the threads that come first, one starts the VM and the others wait for it. Nobody takes the lock once
// there is a VM.
void startVM()
{
   static std::mutex mutex;
   std::lock_guard<std::mutex> const onlyOne(mutex);
   if (javaVM.load(std::memory_order_relaxed) != nullptr) {
      return;
   }
   watchProcess();
   isStarted.store(true, std::memory_order_relaxed);
   auto const saved = control87(0, 0);
   setControlWordForVM();
   try {
      javaVM.store(joinOrCreateVM(), std::memory_order_release);
   } catch (...) { // for want of memory, too
      isStarted.store(false, std::memory_order_relaxed);
      throw;
   }
   control87(saved, wholeControlWord);
}

} // namespace

JNIEnv* acquireJNIEnv()
{
   if (javaVM.load(std::memory_order_acquire) == nullptr && !isLostByFork.load(std::memory_order_relaxed)) {
      startVM();
   }
   try {
      return attachCurrentThread();
   } catch (rti1516e::RTIinternalError const& failure) {
      failSetup(failure.what() + L"\n");
   }
}

JNIEnv* attachCurrentThread()
{
   JavaVM* const vm = javaVM.load(std::memory_order_acquire);
   if (vm == nullptr) {
      throw rti1516e::RTIinternalError(
         isLostByFork.load(std::memory_order_relaxed)
            ? L"The Java VM of a process does not live on in the child of a fork"
            : L"There is no Java VM");
   }
   JNIEnv* env = nullptr;
   if (jint const code = attachTo(vm, env); code < 0) {
      throw rti1516e::RTIinternalError(L"Cannot attach the thread to the Java VM: " + jniErrorText(code));
   }
   return env;
}

bool isVMGone() noexcept
{
   JavaVM* vm = javaVM.load(std::memory_order_acquire);
   jsize count = 0;
   return vm == nullptr || isProcessEnding.load(std::memory_order_relaxed) ||
          JNI_GetCreatedJavaVMs(&vm, 1, &count) < 0 || count < 1;
}

std::wstring jniErrorText(jint code)
{
   switch (code) {
   case JNI_ERR:
      return L"Unknown error (-1)";
   case JNI_EDETACHED:
      return L"JVM Detached (-2)";
   case JNI_EVERSION:
      return L"JNI Version Error (-3)";
   case JNI_ENOMEM:
      return L"Not enough JVM memory allocated (-4)";
   case JNI_EEXIST:
      return L"VM already created (-5)";
   case JNI_EINVAL:
      return L"Invalid JVM arguments (-6)";
   default:
      return L"Unknown JVM error " + std::to_wstring(code);
   }
}

} // namespace tovu1516e

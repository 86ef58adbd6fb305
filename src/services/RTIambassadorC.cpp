#include "src/services/RTIambassadorC.h"

#include "src/callbacks/FederateAmbassadorC.h"
#include "src/jvm/ClassPathAdvice.h"
#include "src/jvm/JavaVMHost.h"
#include "src/jvm/SetupFailure.h"
#include "src/jvm/UncancellableScope.h"
#include "src/jvm/WideText.h"

#include <RTI/Exception.h>

#include <cstdlib>

namespace tovu1516e {
namespace {

constexpr char const* factoryClassName = "morva/tovu1516e/RtiFactoryImpl";
constexpr char const* ambassadorClassName = "morva/tovu1516e/RTIambassadorC2007";

[[noreturn]] void failLocating(wchar_t const* classes)
{
   char const* const classPath = std::getenv("CLASSPATH");
   failSetup(L"Cannot locate Tovu " + std::wstring(classes) + L" Java classes\nCLASSPATH: " +
                widen(classPath != nullptr ? classPath : "(unknown)"),
             classPathAdvice());
}

// The core's ambassador, as a global reference.
jobject makePeer(JNIEnv* env, jclass ambassadorClass)
{
   jmethodID const constructor = env->GetMethodID(ambassadorClass, "<init>", "([B)V");
   if (constructor == nullptr) {
      env->ExceptionClear();
      failSetup(L"Cannot locate constructor for Java class morva.tovu1516e.RTIambassadorC2007");
   }
   OutgoingMessage const message(env, CallbackToken{0});
   LocalReference<jobject> const object(env, env->NewObject(ambassadorClass, constructor, message.array()));
   if (LocalReference<jthrowable> const exception(env, env->ExceptionOccurred()); exception) {
      printJavaException(env);
      throw rti1516e::RTIinternalError(messageOf(env, exception.get()));
   }
   if (!object) {
      failSetup(L"Cannot create RTIambassador object. Constructor returned NULL\n");
   }
   jobject const peer = env->NewGlobalRef(object.get());
   if (peer == nullptr) {
      env->ExceptionClear();
      failSetup(L"Cannot create RTIambassador object. The Java VM is out of memory\n");
   }
   return peer;
}

} // namespace

RTIambassadorC::RTIambassadorC()
{
   X87Keeper const controlWord;
   JNIEnv* const env = acquireJNIEnv();
   setCatchAllInCallbacks(std::getenv("TOVU1516_DONTCATCHALL") == nullptr);
   if (!findClass(env, factoryClassName)) {
      failLocating(L"core");
   }
   auto const ambassadorClass = findClass(env, ambassadorClassName, Complaint::Printed);
   if (!ambassadorClass) {
      failLocating(L"adapter");
   }
   fillMethodTable(env, ambassadorClass.get());
   registerCallbackNatives(env);
   _peer = makePeer(env, ambassadorClass.get());
   controlWord.restoreIfChanged();
}

RTIambassadorC::~RTIambassadorC()
{
   try {
      UncancellableScope const throughout; // a destructor cannot be left half-way
      X87Keeper const controlWord;
      JNIEnv* const env = attachCurrentThread();
      callIgnoringExceptions(env, _peer, services::disconnect);
      env->DeleteGlobalRef(_peer);
      controlWord.restoreIfChanged();
   } catch (...) { // NOLINT(bugprone-empty-catch)
      // If the VM is gone, so is the peer, and callbacks that were under way may never return. If only this
      // thread cannot enter it, they do, and the peer's next ones are refused.
      if (isVMGone()) {
         _context.abandonCallbacks();
      }
   }
}

void RTIambassadorC::connect(rti1516e::FederateAmbassador& federateAmbassador,
                             rti1516e::CallbackModel callbackModel,
                             std::wstring const& localSettingsDesignator)
{
   _context.setFederateAmbassador(federateAmbassador);
   invoke(services::connect_FA_CM_S, _context.token(), callbackModel, localSettingsDesignator);
}

std::unique_ptr<rti1516e::LogicalTimeFactory> RTIambassadorC::makeTimeFactory() const
{
   auto const name = invoke(services::getTimeFactory);
   return toUnique(rti1516e::LogicalTimeFactoryFactory::makeLogicalTimeFactory(name));
}

} // namespace tovu1516e

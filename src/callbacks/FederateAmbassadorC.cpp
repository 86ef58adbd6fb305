#include "src/callbacks/FederateAmbassadorC.h"

#include "src/callbacks/CallbackContext.h"
#include "src/jvm/Assertion.h"
#include "src/jvm/ClassPathAdvice.h"
#include "src/jvm/JavaException.h"
#include "src/jvm/LocalReference.h"
#include "src/jvm/PinnedArray.h"
#include "src/jvm/WideText.h"
#include "src/jvm/X87ControlWord.h"
#include "src/messages/TypeCodes.h"

#include <RTI/Exception.h>
#include <RTI/FederateAmbassador.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cxxabi.h>
#include <exception>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace tovu1516e {
namespace {

constexpr char const* unit = "gen/cpp/FederateAmbassadorC";

// What every message of a callback begins and ends with.
constexpr std::uint32_t PRE_MAGIC = 0x63626160;
constexpr std::uint32_t POST_MAGIC = 0x59585756;

std::atomic<bool> catchAllInCallbacks{true};

// A row of the callbacks: the member that the codes are the parameters of.
template <class... Codes>
struct Callback
{
   void (rti1516e::FederateAmbassador::*member)(typename Codes::Parameter...);

   static constexpr bool names(std::string_view name) { return namesCodes<Codes...>(name); }
};

template <class Signature>
struct CallbackFor;
template <class... Codes>
struct CallbackFor<void(Codes...)>
{
   using Type = Callback<Codes...>;
};

// A message while it is read. It is released before anything but the library's own code runs.
class IncomingMessage
{
public:
   IncomingMessage(JNIEnv* env, jbyteArray message) : _storage(env, message), _from(_storage.get())
   {
      if (_storage.get() == nullptr) {
         env->ExceptionClear();
         throw rti1516e::RTIinternalError(L"The Java VM cannot pin the message of a callback");
      }
      if (_from.get<std::uint32_t>() != PRE_MAGIC) {
         failAssertion("preMagic == PRE_MAGIC", unit, __LINE__);
      }
      _token.value = _from.get<std::uint32_t>();
   }

   CallbackToken token() const noexcept { return _token; }
   ByteWrapper& arguments() noexcept { return _from; }

   void finish()
   {
      if (_from.get<std::uint32_t>() != POST_MAGIC) {
         failAssertion("postMagic == POST_MAGIC", unit, __LINE__);
      }
      _storage.release();
   }

private:
   PinnedArray<unsigned char> _storage;
   ByteWrapper _from;
   CallbackToken _token{0};
};

// No federate to call: tell the core.
[[noreturn]] void refuse(char const* why) { throw rti1516e::FederateInternalError(widen(why)); }

// Loads the control word that the federate connected with for the time of a callback.
class FederateControlWord
{
public:
   explicit FederateControlWord(std::uint16_t federateWord) noexcept
      : _before(readX87()), _changed(_before != federateWord)
   {
      if (_changed) {
         loadX87(federateWord);
      }
   }

   // A callback that throws leaves the federate's word in place, so that this is no destructor.
   void restore() const noexcept
   {
      if (_changed) {
         loadX87(_before);
      }
   }

private:
   std::uint16_t _before;
   bool _changed;
};

template <class... Codes, std::size_t... I>
void deliver(JNIEnv* env, jbyteArray array, Callback<Codes...> const& callback, std::index_sequence<I...>)
{
   // The message is let go of first, and last the context, with which a time factory may go.
   CallbackContextReference context;
   std::tuple<typename Codes::Received...> arguments;
   std::optional<IncomingMessage> message(std::in_place, env, array);
   if (!context.find(message->token())) {
      refuse("The RTI ambassador of this callback is gone");
   }
   TimeFactory* const timeFactory = context.timeFactory();
   if constexpr ((Codes::isTime || ...)) {
      if (timeFactory != nullptr && timeFactory->knownTimeLength() == 0) {
         message.reset();
         timeFactory->learnTimeLength();
         message.emplace(env, array);
      }
   }
   (Codes::read(message->arguments(), std::get<I>(arguments), timeFactory), ...);
   message->finish();

   rti1516e::FederateAmbassador* const federate = context.federateAmbassador();
   if (federate == nullptr) {
      refuse("The RTI ambassador of this callback is not connected");
   }
   (Codes::finish(std::get<I>(arguments), timeFactory), ...);
   FederateControlWord const controlWord(context.controlWord());
   (federate->*callback.member)(Codes::parameter(std::get<I>(arguments))...);
   controlWord.restore();
}

// Hands a text to Java, or what can be said without memory if it cannot be made.
template <class MakeText>
void report(JNIEnv* env, MakeText makeText) noexcept
{
   try {
      throwToJava(env, makeText().c_str());
   } catch (...) {
      throwToJava(env, "Unknown C++ exception");
   }
}

// Turns the exception being handled into a pending Java exception. What is not to be contained goes on.
void contain(JNIEnv* env)
{
   try {
      throw;
   } catch (rti1516e::Exception const& exception) {
      report(env, [&] { return jniTextOfLatin1(narrow(exception.what())); });
   } catch (std::exception const& exception) {
      report(env, [&] { return jniTextOf(exception.what()); });
   } catch (std::string const& text) {
      report(env, [&] { return jniTextOf(text); });
   } catch (...) {
      if (!catchAllInCallbacks.load(std::memory_order_relaxed)) {
         throw;
      }
      throwToJava(env, "Unknown C++ exception");
   }
}

template <class... Codes>
void run(JNIEnv* env, jbyteArray message, Callback<Codes...> const& callback)
{
   try {
      deliver(env, message, callback, std::index_sequence_for<Codes...>());
   } catch (...) {
      if (abi::__cxa_current_exception_type() == nullptr) { // the thread is ending, and nobody may stop that
         throw;
      }
      contain(env);
   }
}

namespace callbacks {

#define CALLBACK(name, member, signature)                                              \
   constexpr CallbackFor<signature>::Type name{&rti1516e::FederateAmbassador::member}; \
   static_assert(CallbackFor<signature>::Type::names(#name),                           \
                 #name " does not end in the codes of its parameters");
#include "src/callbacks/Callbacks.def"

} // namespace callbacks

} // namespace

void setCatchAllInCallbacks(bool catchAll) noexcept
{
   catchAllInCallbacks.store(catchAll, std::memory_order_relaxed);
}

} // namespace tovu1516e

// The natives. They have C++ names, so that the VM finds them by their registration alone.
#define CALLBACK(name, member, signature)                                                \
   RTI_EXPORT void JNICALL Java_morva_tovu1516e_FederateAmbassadorC2007_##name##_Native( \
      JNIEnv* env, jobject, jbyteArray message)                                          \
   {                                                                                     \
      tovu1516e::run(env, message, tovu1516e::callbacks::name);                          \
   }
#include "src/callbacks/Callbacks.def"

namespace tovu1516e {

void registerCallbackNatives(JNIEnv* env)
{
   auto const cls = findClass(env, "morva/tovu1516e/FederateAmbassadorC2007", Complaint::Printed);
   if (!cls) {
      std::fputs("The file tovu1516e.jar can not be found in the CLASSPATH.\n", stderr);
      std::fputs(otherCoreAdvice().c_str(), stderr);
      return;
   }
   static char signature[] = "([B)V";
   static JNINativeMethod const natives[] = {
#define CALLBACK(name, ...)                        \
   {const_cast<char*>(#name "_Native"), signature, \
    reinterpret_cast<void*>(&Java_morva_tovu1516e_FederateAmbassadorC2007_##name##_Native)},
#include "src/callbacks/Callbacks.def"
   };
   static_assert(std::size(natives) == 60);
   if (env->RegisterNatives(cls.get(), natives, static_cast<jint>(std::size(natives))) != 0) {
      printJavaException(env);
      std::fputs("Failed to register native functions.\n", stderr);
      std::fputs(otherCoreAdvice().c_str(), stderr);
   }
}

} // namespace tovu1516e

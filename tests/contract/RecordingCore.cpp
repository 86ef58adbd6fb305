#include "RecordingCore.h"

#include <stdexcept>
#include <type_traits>

namespace contract {
namespace {

// The calling thread's environment, with a frame for the local references made through it.
class Frame
{
public:
   explicit Frame(JavaVM* vm)
   {
      vm->AttachCurrentThread(reinterpret_cast<void**>(&_env), nullptr);
      if (_env->PushLocalFrame(32) != 0) {
         throw std::runtime_error("no local frame");
      }
   }
   Frame(Frame const&) = delete;
   Frame& operator=(Frame const&) = delete;
   ~Frame() { _env->PopLocalFrame(nullptr); }

   JNIEnv* operator->() const { return _env; }

   // No JNI call of the tests' own may fail.
   void check() const
   {
      if (_env->ExceptionCheck()) {
         _env->ExceptionDescribe();
         throw std::runtime_error("the recording core failed");
      }
   }

   jmethodID method(jclass type, char const* name, char const* signature) const
   {
      auto* const id = _env->GetStaticMethodID(type, name, signature);
      check();
      return id;
   }

   jobject text(std::u16string const& value) const
   {
      auto* const string =
         _env->NewString(reinterpret_cast<jchar const*>(value.data()), static_cast<jsize>(value.size()));
      check();
      return string;
   }

   jobject text(std::string const& ascii) const { return text(std::u16string(ascii.begin(), ascii.end())); }

   jobject bytes(Bytes const& value) const
   {
      auto const size = static_cast<jsize>(value.size());
      auto* const array = _env->NewByteArray(size);
      check();
      _env->SetByteArrayRegion(array, 0, size, reinterpret_cast<jbyte const*>(value.data()));
      check();
      return array;
   }

   std::u16string textIn(jobject object) const
   {
      auto* const string = static_cast<jstring>(object);
      std::u16string value(static_cast<std::size_t>(_env->GetStringLength(string)), u'\0');
      _env->GetStringRegion(string, 0, static_cast<jsize>(value.size()),
                            reinterpret_cast<jchar*>(value.data()));
      check();
      return value;
   }

   std::string asciiIn(jobject object) const
   {
      std::string ascii;
      for (char16_t const unit : textIn(object)) {
         ascii += static_cast<char>(unit);
      }
      return ascii;
   }

   Bytes bytesIn(jobject object) const
   {
      auto* const array = static_cast<jbyteArray>(object);
      std::vector<jbyte> content(static_cast<std::size_t>(_env->GetArrayLength(array)));
      _env->GetByteArrayRegion(array, 0, static_cast<jsize>(content.size()), content.data());
      check();
      return {content.data(), content.size()};
   }

   std::optional<JavaException> exceptionIn(jobject throwable) const
   {
      if (throwable == nullptr) {
         return std::nullopt;
      }
      auto* const type = _env->GetObjectClass(throwable);
      auto* const getMessage = _env->GetMethodID(type, "getMessage", "()Ljava/lang/String;");
      check();
      auto* const message = _env->CallObjectMethod(throwable, getMessage);
      check();
      auto* const classClass = _env->GetObjectClass(type);
      auto* const getName = _env->GetMethodID(classClass, "getName", "()Ljava/lang/String;");
      check();
      auto* const name = _env->CallObjectMethod(type, getName);
      check();
      JavaException exception{asciiIn(name), std::nullopt};
      if (message != nullptr) {
         exception.message = textIn(message);
      }
      return exception;
   }

private:
   JNIEnv* _env = nullptr;
};

template <class Array, class Element>
jobject arrayOf(Frame const& frame, Array (JNIEnv::*make)(jsize),
                void (JNIEnv::*fill)(Array, jsize, jsize, Element const*), std::vector<Element> const& values)
{
   auto const size = static_cast<jsize>(values.size());
   auto* const env = frame.operator->();
   auto const array = (env->*make)(size);
   frame.check();
   (env->*fill)(array, 0, size, values.data());
   frame.check();
   return array;
}

jobject objectOf(Frame const& frame, jclass recorder, JavaException const& exception)
{
   auto* const make =
      frame.method(recorder, "exception", "(Ljava/lang/String;Ljava/lang/String;)Ljava/lang/Throwable;");
   auto* const object =
      frame->CallStaticObjectMethod(recorder, make, frame.text(exception.className),
                                    exception.message ? frame.text(*exception.message) : nullptr);
   frame.check();
   return object;
}

jobject callWithDelivery(Frame const& frame, jclass recorder, char const* name, char const* result,
                         Delivery const& delivery)
{
   auto* const method =
      frame.method(recorder, name, (std::string("(Ljava/lang/String;[BIZ)") + result).c_str());
   auto* const object = frame->CallStaticObjectMethod(
      recorder, method, frame.text(delivery.native), frame.bytes(delivery.message),
      static_cast<jint>(delivery.times), static_cast<jboolean>(delivery.onJavaThread));
   frame.check();
   return object;
}

void callVoid(Frame const& frame, jclass recorder, char const* name)
{
   frame->CallStaticVoidMethod(recorder, frame.method(recorder, name, "()V"));
   frame.check();
}

} // namespace

std::ostream& operator<<(std::ostream& stream, JavaException const& exception)
{
   stream << exception.className << ": ";
   if (!exception.message) {
      return stream << "no message";
   }
   for (char16_t const unit : *exception.message) {
      if (unit >= u' ' && unit < u'\x7F') {
         stream << static_cast<char>(unit);
      } else {
         stream << "\\x" << std::hex << static_cast<unsigned int>(unit) << std::dec;
      }
   }
   return stream;
}

RecordingCore& RecordingCore::instance()
{
   static RecordingCore core;
   return core;
}

RecordingCore::RecordingCore() : _vm(nullptr), _recorder(nullptr)
{
   jsize count = 0;
   if (JNI_GetCreatedJavaVMs(&_vm, 1, &count) != JNI_OK || count == 0) {
      throw std::runtime_error("no Java VM");
   }
   Frame const frame(_vm);
   auto* const recorder = frame->FindClass("recording/Recorder");
   frame.check();
   _recorder = static_cast<jclass>(frame->NewGlobalRef(recorder));
}

void RecordingCore::answer(std::string const& method, Answer const& answer)
{
   Frame const frame(_vm);
   auto const tell = [&](char const* type, auto value) {
      auto* const id =
         frame.method(_recorder, "answerWith", (std::string("(Ljava/lang/String;") + type + ")V").c_str());
      frame->CallStaticVoidMethod(_recorder, id, frame.text(method), value);
      frame.check();
   };
   auto const tellObject = [&](jobject object) { tell("Ljava/lang/Object;", object); };
   std::visit(
      [&](auto const& value) {
         using T = std::decay_t<decltype(value)>;
         if constexpr (std::is_same_v<T, jint>) {
            tell("I", value);
         } else if constexpr (std::is_same_v<T, bool>) {
            tell("Z", static_cast<jboolean>(value));
         } else if constexpr (std::is_same_v<T, jlong>) {
            tell("J", value);
         } else if constexpr (std::is_same_v<T, double>) {
            tell("D", value);
         } else if constexpr (std::is_same_v<T, Bytes>) {
            tellObject(frame.bytes(value));
         } else if constexpr (std::is_same_v<T, std::vector<jint>>) {
            tellObject(arrayOf(frame, &JNIEnv::NewIntArray, &JNIEnv::SetIntArrayRegion, value));
         } else if constexpr (std::is_same_v<T, std::vector<jlong>>) {
            tellObject(arrayOf(frame, &JNIEnv::NewLongArray, &JNIEnv::SetLongArrayRegion, value));
         } else if constexpr (std::is_same_v<T, std::u16string>) {
            tellObject(frame.text(value));
         } else if constexpr (std::is_same_v<T, JavaException>) {
            tellObject(objectOf(frame, _recorder, value));
         } else if constexpr (std::is_same_v<T, Delivery>) {
            tellObject(callWithDelivery(frame, _recorder, "delivery", "Ljava/lang/Object;", value));
         } else {
            tell("Ljava/lang/Object;", static_cast<jobject>(nullptr));
         }
      },
      answer);
}

std::vector<RecordedCall> RecordingCore::calls()
{
   Frame const frame(_vm);
   auto* const methodOf = frame.method(_recorder, "method", "(I)Ljava/lang/String;");
   auto* const messageOf = frame.method(_recorder, "message", "(I)[B");
   auto* const ambassadorOf = frame.method(_recorder, "peer", "(I)I");
   auto const count = frame->CallStaticIntMethod(_recorder, frame.method(_recorder, "calls", "()I"));
   frame.check();
   std::vector<RecordedCall> calls;
   for (jint i = 0; i < count; ++i) {
      Frame const inner(_vm);
      auto* const method = inner->CallStaticObjectMethod(_recorder, methodOf, i);
      inner.check();
      auto* const message = inner->CallStaticObjectMethod(_recorder, messageOf, i);
      inner.check();
      auto const ambassador = inner->CallStaticIntMethod(_recorder, ambassadorOf, i);
      inner.check();
      calls.push_back({inner.asciiIn(method), std::nullopt, ambassador});
      if (message != nullptr) {
         calls.back().message = inner.bytesIn(message);
      }
   }
   return calls;
}

void RecordingCore::forget() { callVoid(Frame(_vm), _recorder, "forget"); }

std::optional<JavaException> RecordingCore::deliver(Delivery const& delivery)
{
   Frame const frame(_vm);
   return frame.exceptionIn(callWithDelivery(frame, _recorder, "deliver", "Ljava/lang/Throwable;", delivery));
}

std::optional<JavaException> RecordingCore::pending()
{
   Frame const frame(_vm);
   auto* const throwable =
      frame->CallStaticObjectMethod(_recorder, frame.method(_recorder, "pending", "()Ljava/lang/Throwable;"));
   frame.check();
   return frame.exceptionIn(throwable);
}

void RecordingCore::watchReferences() { callVoid(Frame(_vm), _recorder, "watchReferences"); }

std::string RecordingCore::heldReferences()
{
   Frame const frame(_vm);
   auto* const held = frame->CallStaticObjectMethod(
      _recorder, frame.method(_recorder, "heldReferences", "()Ljava/lang/String;"));
   frame.check();
   return frame.asciiIn(held);
}

std::optional<std::u16string> RecordingCore::property(std::string const& name)
{
   Frame const frame(_vm);
   auto* const value = frame->CallStaticObjectMethod(
      _recorder, frame.method(_recorder, "property", "(Ljava/lang/String;)Ljava/lang/String;"),
      frame.text(name));
   frame.check();
   if (value == nullptr) {
      return std::nullopt;
   }
   return frame.textIn(value);
}

} // namespace contract

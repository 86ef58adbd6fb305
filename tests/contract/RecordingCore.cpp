#include "RecordingCore.h"

#include <memory>
#include <stdexcept>
#include <type_traits>

namespace contract {
namespace {

Bytes texted(std::string const& ascii) { return Bytes().text({ascii.begin(), ascii.end()}); }

Bytes encoded(Delivery const& delivery)
{
   return texted(delivery.native)
      .counted(delivery.message)
      .int32(static_cast<std::uint32_t>(delivery.times))
      .byte(delivery.onJavaThread ? 1 : 0);
}

// An answer is sent as the signature of what Java makes of it, and what that is made from.
struct EncodedAnswer
{
   Bytes operator()(std::nullptr_t) const { return texted("null"); }
   Bytes operator()(jint value) const { return texted("I").int32(static_cast<std::uint32_t>(value)); }
   Bytes operator()(bool value) const { return texted("Z").byte(value ? 1 : 0); }
   Bytes operator()(jlong value) const { return texted("J").int64(static_cast<std::uint64_t>(value)); }
   Bytes operator()(double value) const { return texted("D").real(value); }
   Bytes operator()(Bytes const& value) const { return texted("[B").counted(value); }
   Bytes operator()(std::vector<jint> const& values) const
   {
      return texted("[I").ints({values.begin(), values.end()});
   }
   Bytes operator()(std::vector<jlong> const& values) const
   {
      Bytes bytes = texted("[J").int32(static_cast<std::uint32_t>(values.size()));
      for (jlong const value : values) {
         bytes.int64(static_cast<std::uint64_t>(value));
      }
      return bytes;
   }
   Bytes operator()(std::u16string const& value) const { return texted("String").text(value); }
   Bytes operator()(JavaException const& exception) const
   {
      Bytes const type = texted("exception").append(texted(exception.className));
      return exception.message ? Bytes(type).byte(1).text(*exception.message) : Bytes(type).byte(0);
   }
   Bytes operator()(Delivery const& delivery) const { return texted("delivery").append(encoded(delivery)); }
};

// What the recorder replies, read from the front.
class Reply
{
public:
   explicit Reply(Bytes bytes) : _bytes(std::move(bytes)) {}

   bool flag() { return *take(1) != 0; }
   std::uint32_t int32() { return Bytes(take(4), 4).leadingInt(); }
   Bytes bytes()
   {
      auto const size = int32();
      return {take(size), size};
   }
   std::u16string text()
   {
      std::u16string text(int32(), u'\0');
      for (char16_t& unit : text) {
         auto const* const octets = take(2);
         unit = static_cast<char16_t>(octets[0] << 8 | octets[1]);
      }
      return text;
   }
   std::string ascii()
   {
      auto const wide = text();
      return {wide.begin(), wide.end()};
   }
   std::optional<std::u16string> optionalText() { return flag() ? std::optional(text()) : std::nullopt; }
   std::optional<JavaException> exception()
   {
      if (!flag()) {
         return std::nullopt;
      }
      auto const className = ascii();
      return JavaException{className, optionalText()};
   }

private:
   unsigned char const* take(std::size_t size)
   {
      auto const* const start = _bytes.data() + _next;
      _next += size;
      return start;
   }

   Bytes _bytes;
   std::size_t _next = 0;
};

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

RecordingCore::RecordingCore()
{
   jsize count = 0;
   if (JNI_GetCreatedJavaVMs(&_vm, 1, &count) != JNI_OK || count == 0) {
      throw std::runtime_error("no Java VM");
   }
}

Bytes RecordingCore::ask(char const* question, Bytes const& arguments)
{
   JNIEnv* env = nullptr;
   _vm->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr);
   // No JNI call of the tests' own may fail.
   auto const checked = [env](auto result) {
      if (env->ExceptionCheck()) {
         env->ExceptionDescribe();
         throw std::runtime_error("the recording core failed");
      }
      return result;
   };
   checked(env->PushLocalFrame(8));
   Bytes const asked = texted(question).append(arguments);
   auto const size = static_cast<jsize>(asked.size());
   auto* const request = checked(env->NewByteArray(size));
   env->SetByteArrayRegion(request, 0, size, reinterpret_cast<jbyte const*>(asked.data()));
   auto* const recorder = checked(env->FindClass("recording/Recorder"));
   auto* const method = checked(env->GetStaticMethodID(recorder, "ask", "([B)[B"));
   auto* const reply =
      static_cast<jbyteArray>(checked(env->CallStaticObjectMethod(recorder, method, request)));
   std::vector<jbyte> content(static_cast<std::size_t>(env->GetArrayLength(reply)));
   env->GetByteArrayRegion(reply, 0, static_cast<jsize>(content.size()), content.data());
   env->PopLocalFrame(nullptr);
   return {content.data(), content.size()};
}

void RecordingCore::answer(std::string const& method, Answer const& answer)
{
   ask("answer", texted(method).append(std::visit(EncodedAnswer(), answer)));
}

std::vector<RecordedCall> RecordingCore::calls()
{
   Reply reply(ask("calls"));
   std::vector<RecordedCall> calls(reply.int32());
   for (auto& call : calls) {
      call.method = reply.ascii();
      call.ambassador = reply.int32();
      if (reply.flag()) {
         call.message = reply.bytes();
      }
   }
   return calls;
}

void RecordingCore::forget() { ask("forget"); }

std::optional<JavaException> RecordingCore::deliver(Delivery const& delivery)
{
   return Reply(ask("deliver", encoded(delivery))).exception();
}

std::optional<JavaException> RecordingCore::pending() { return Reply(ask("pending")).exception(); }

void RecordingCore::watchReferences() { ask("watch references"); }

std::string RecordingCore::heldReferences() { return Reply(ask("held references")).ascii(); }

std::optional<std::u16string> RecordingCore::property(std::string const& name)
{
   return Reply(ask("property", texted(name))).optionalText();
}

} // namespace contract

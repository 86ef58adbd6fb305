// The recording core in the Java VM of this process, as the tests drive it through JNI.
#pragma once

#include "Bytes.h"

#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace contract {

// A Java exception: to be thrown, or left pending by a native. Without a message it has none in Java.
struct JavaException
{
   std::string className; // with dots
   std::optional<std::u16string> message;

   friend bool operator==(JavaException const& left, JavaException const& right)
   {
      return left.className == right.className && left.message == right.message;
   }
   friend std::ostream& operator<<(std::ostream& stream, JavaException const& exception);
};

inline std::string hlaClass(std::string const& name) { return "hla.rti1516e.exceptions." + name; }

// A callback that the core delivers by calling the native with the bytes.
struct Delivery
{
   std::string native;
   Bytes message;
   int times = 1;
   bool onJavaThread = false; // instead of the calling thread
};

// What a Java method returns (null for nullptr_t), throws, or does before it returns nothing.
using Answer = std::variant<std::nullptr_t, jint, bool, jlong, double, Bytes, std::vector<jint>,
                            std::vector<jlong>, std::u16string, JavaException, Delivery>;

struct RecordedCall
{
   std::string method;
   std::optional<Bytes> message; // none where the method takes no array
   std::uint32_t ambassador;     // tells the core's ambassadors apart
};

class RecordingCore
{
public:
   // The VM must be running.
   static RecordingCore& instance();

   void answer(std::string const& method, Answer const& answer);
   std::vector<RecordedCall> calls();
   void forget(); // calls and answers

   // Returns what the native left pending the last time.
   std::optional<JavaException> deliver(Delivery const& delivery);
   // The same of a callback that was the answer to a service.
   std::optional<JavaException> pending();

   // What crossed the boundary between the two and is still held on to, a line each.
   void watchReferences();
   std::string heldReferences();

   std::optional<std::u16string> property(std::string const& name);

   // Ends the calling thread's being attached to the VM, which a thread that a test starts does in the end.
   void detachThread() { _vm->DetachCurrentThread(); }

private:
   RecordingCore();

   // All that is said between the tests and the recorder, as bytes.
   Bytes ask(char const* question, Bytes const& arguments = Bytes());

   JavaVM* _vm = nullptr;
};

} // namespace contract

// The crossing into Java and back, written by hand and doing no more than it must: what the library is
// measured against. Two floors: the bare crossing with ready-made bytes, and with what every caller of a
// service has to do beside it.
#pragma once

#include <RTI/RTI1516.h>

#include <jni.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

// One call of a method of a core whose methods return at once: attach, make the array, pin it, copy
// ready-made bytes, unpin, call, delete the reference.
class ServiceFloor
{
public:
   // A method of the core's ambassador, and the bytes it is called with; none if it takes no message.
   ServiceFloor(char const* method, char const* signature, std::size_t messageSize);

   void callVoid() const;
   jint callInt() const;
   std::wstring callText() const;
   void callMessageHandle() const;
   std::auto_ptr<rti1516e::LogicalTime> callTime(rti1516e::LogicalTimeFactory& factory) const;

private:
   jbyteArray newMessage(JNIEnv* env) const;

   JavaVM* _vm = nullptr;
   jobject _peer = nullptr;
   jmethodID _method = nullptr;
   std::vector<char> _bytes;
   bool _hasMessage;
};

// The same from the values themselves: they are walked once for the size and once for the bytes, times are
// encoded, Java exceptions asked for, results taken as long as they are. Values are looked into without the
// calls of their interface.
class ServiceByHand
{
public:
   ServiceByHand(char const* method, char const* signature);

   void callVoid() const;
   jint callInt(std::wstring const& text) const;
   std::wstring callText(rti1516e::ObjectInstanceHandle object) const;
   std::auto_ptr<rti1516e::LogicalTime> callTime(rti1516e::LogicalTimeFactory& factory) const;

   // A map of values under a handle, without a tag. With time the result is the retraction handle's number.
   template <class Handle, class Map>
   void send(Handle handle, Map const& values) const;
   template <class Handle, class Map>
   std::uint32_t send(Handle handle, Map const& values, rti1516e::LogicalTime const& time) const;

private:
   JavaVM* _vm = nullptr;
   jobject _peer = nullptr;
   jmethodID _method = nullptr;
};

// A Java loop that calls one native a thousand times with the same message.
class CallbackLoop
{
public:
   static constexpr int times = 1000;

   CallbackLoop(char const* loop, std::vector<unsigned char> const& message);
   void run() const;

private:
   jclass _class = nullptr;
   jmethodID _loop = nullptr;
   jbyteArray _message = nullptr;
};

// The bare crossing: a service that does nothing but call back, and a callback that does nothing but pin its
// message and let it go. The core, whichever it is, has no part in it.
class RoundTrip
{
public:
   RoundTrip();
   void run();

private:
   JavaVM* _vm = nullptr;
   jclass _class = nullptr;
   jmethodID _service = nullptr;
   jbyteArray _message = nullptr;
};

// The environment of the calling thread in the VM that the library has started.
JNIEnv* environment();

// Registers the natives that the library's callbacks are measured against, which call the federate.
void registerFloorNatives(rti1516e::FederateAmbassador& federate, rti1516e::LogicalTimeFactory& factory);

} // namespace bench

// What all services do around their arguments and results. It is compiled once; the templates that use it
// only size, write and read.
#pragma once

#include "src/jvm/LocalReference.h"
#include "src/jvm/PinnedArray.h"
#include "src/jvm/X87ControlWord.h"
#include "src/services/Services.h"

#include <jni.h>

namespace tovu1516e {

// The message of one call: a new Java array of just the size of the values, written in place.
class OutgoingMessage
{
public:
   // Throws RTIinternalError if there cannot be an array of that size.
   template <class... Values>
   explicit OutgoingMessage(JNIEnv* env, Values const&... values)
      : OutgoingMessage(Size{(Encoder<Values>::size(values) + ...)}, env)
   {
      ByteWrapper to(_storage.get());
      (Encoder<Values>::write(to, values), ...);
      _storage.release();
   }

   jbyteArray array() const noexcept { return _array.get(); }

private:
   struct Size
   {
      MessageSize bytes;
   };
   OutgoingMessage(Size size, JNIEnv* env);

   LocalReference<jbyteArray> _array;
   PinnedArray<jbyte> _storage;
};

// One call of a service: the calling thread is attached, and its control word is kept.
class ServiceFrame
{
public:
   // Throws RTIinternalError if there is no VM to attach to.
   ServiceFrame();

   JNIEnv* env() const noexcept { return _env; }

   // Calls the service's method. A Java exception is thrown as what stands for it.
   jvalue call(jobject peer, Method const& method, jbyteArray message = nullptr) const;

   // A normal end gives the thread its control word back; a translated exception leaves it as Java did.
   void finish() const noexcept { _controlWord.restoreIfChanged(); }

private:
   X87Keeper _controlWord;
   JNIEnv* _env;
};

// Calls a method that takes nothing and returns nothing, and forgets what it raises.
void callIgnoringExceptions(JNIEnv* env, jobject peer, Method const& method) noexcept;

// Looks up the methods of all services on the class of the core's ambassador. A method that is not there ends
// the process: this library and that core are not made for each other.
void fillMethodTable(JNIEnv* env, jclass ambassadorClass);

} // namespace tovu1516e

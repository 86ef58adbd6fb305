// A Java VM that is none: the functions of JNI that the library uses, over plain objects. It keeps account of
// what is referenced, pinned and pending, objects to what JNI forbids, and fails on demand.
#pragma once

#include <jni.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace fake {

// What the core's methods do when they are called.
struct Core
{
   std::string raises;              // the JNI path of an exception's class, or empty
   std::vector<std::uint8_t> bytes; // returned as byte[]
   std::vector<std::int32_t> ints;  // returned as int[]
   std::vector<std::int64_t> longs; // returned as long[]
   std::u16string text;             // returned as String
   std::int32_t number = 0;         // returned as a number of any kind
   bool returnsNull = false;        // instead of an object
   bool makesNothing = false;       // its ambassadors' constructor, as if it could return null
   std::string lacks;               // the method of its ambassador that is not there
   std::function<void()> meanwhile; // done once, in the next method or constructor
};

// What the library asks of the Java runtime to have the VM, and what comes of it.
struct Runtime
{
   jint queryStatus = JNI_OK;
   jint createStatus = JNI_OK;
   jint attachStatus = JNI_OK; // any other: threads that were attached are so no more
   bool alreadyRunning = true; // false once there is a VM: as if it were gone
   bool hasClasses = true;

   int queries = 0;
   int creations = 0;
   int attachments = 0;
   int detachments = 0;
   jint version = 0;
   jboolean ignoreUnrecognized = JNI_FALSE;
   std::vector<std::string> options;
   std::function<void()> onCreation;
};

// Starts over: no references, no failures, a core that returns zeros. The VM is there from the beginning.
void reset();

Core& core();
Runtime& runtime();

// Lets the n-th call from now on of those that can fail fail, n counting from 1; 0: none.
void failCall(int n);

// Whether such a call has failed since.
bool hasFailed();

// Whether a function of the VM is running.
bool isInside();

// References and pins that are held now, and whether an exception is pending.
struct Holdings
{
   int localReferences;
   int globalReferences;
   int pins;
   bool pending;
};
Holdings holdings();

// Takes it that one global reference can never be deleted, for want of a VM to do it.
void forgetGlobalReference();

// How often any function of the VM has been called.
int calls();

// What JNI forbids and was done all the same, in plain words; empty if nothing was.
std::vector<std::string> const& offences();

// The bytes that the last method was called with, and the number of arrays made.
std::vector<std::uint8_t> const& lastMessage();
int arraysMade();

// Calls a callback's native with a message, as the core would. Returns the message of the exception that it
// left pending, or "none".
std::string callNative(std::string const& name, std::vector<std::uint8_t> const& message);

} // namespace fake

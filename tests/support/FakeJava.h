// A Java VM that is none: the functions of JNI that the library uses, over plain objects. It keeps account of
// what is referenced, pinned and pending, objects to what JNI forbids, and fails on demand.
#pragma once

#include "tests/support/Bytes.h"

#include <jni.h>

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace fake {

// What the core has and what its methods do when they are called.
struct Core
{
   std::vector<std::string> raises; // the JNI paths of an exception's class and of its bases, or nothing
   std::optional<std::u16string> message = u"raised"; // of that exception
   // What is returned: a number, or the elements of an array or a text, big-endian; or null. Too little is 0.
   std::optional<contract::Bytes> result = contract::Bytes();
   std::string lacks;                // the method of its ambassador that is not there
   std::string lacksClasses = "no/"; // those whose names begin so are not there
   std::function<void()> meanwhile;  // done once, in the next method or constructor
};

// What the library asks of the Java runtime to have the VM, and what comes of it.
struct Runtime
{
   jint queryStatus = JNI_OK;
   jint createStatus = JNI_OK;
   jint attachStatus = JNI_OK; // any other: threads that were attached are so no more
   bool alreadyRunning = true; // false once there is a VM: as if it were gone

   int queries = 0;
   int creations = 0;
   int attachments = 0;
   int detachments = 0;
   JavaVMInitArgs arguments{}; // of the last creation
   std::vector<std::string> options;
   std::function<void()> onCreation = [] {};
};

// What the library has done.
struct Account
{
   int globalReferences = 0; // these are held now
   int pins = 0;
   int calls = 0; // of any function of the VM
   int arraysMade = 0;
   std::vector<std::string> offences; // what JNI forbids and was done all the same
   std::string lastMethod;            // that was called, a blank, and its signature
   contract::Bytes lastMessage;       // that it was given
   std::set<std::string> methods;     // of the core's ambassador that were looked up, as the last one
   std::set<std::string> natives;     // that were registered
};

extern JavaVM vm;
extern JNIEnv env;
inline Core core;
inline Runtime runtime;
inline Account account;

// Starts over: no references, no failures, a core that returns zeros. The VM is there from the beginning.
void reset();

// What the library holds, and what it has done though it is forbidden: "0 local, 1 global, 0 pinned".
std::string remains();

// Lets the n-th call from now on of those that can fail fail, n counting from 1; 0: none.
void failCall(int n);

// Whether such a call has failed since.
bool hasFailed();

// Whether a function of the VM is running.
bool isInside();

// Calls a callback's native with a message, as the core would. Returns the message of the exception that it
// left pending, or "none".
std::string callNative(std::string const& name, contract::Bytes const& message);

} // namespace fake

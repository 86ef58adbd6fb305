#include "tests/support/FakeJava.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

namespace fake {
namespace {

struct Object
{
   std::string className;
   contract::Bytes storage = {}; // of arrays
   std::size_t length = 0;
   std::optional<std::u16string> text = {};     // of strings, and messages of exceptions
   std::set<std::string> classes = {className}; // its own and its bases
};

struct State
{
   std::vector<std::unique_ptr<Object>> objects; // live until the next reset, so that a misuse is seen
   std::map<Object const*, int> locals;
   Object* pending = nullptr;
   int failIn = 0;
   bool failed = false;
};

State state;
std::map<std::string, void*> natives; // registered once per construction
std::set<std::string> methods;        // a name, a blank and a signature, which stay in place

Object* objectOf(void* reference) { return static_cast<Object*>(reference); }

std::string const& methodOf(jmethodID id) { return *reinterpret_cast<std::string const*>(id); }

Object* newObject(std::string const& className)
{
   return state.objects.emplace_back(std::make_unique<Object>(Object{className})).get();
}

template <class Reference>
Reference local(Object* object)
{
   ++state.locals[object];
   return reinterpret_cast<Reference>(object);
}

void offend(std::string const& what) { account.offences.push_back(what); }

// What JNI allows while something is pinned, and while an exception is pending.
enum class Allowed
{
   Never,
   WhilePending,
   Always
};

// While a function of the VM runs, memory is not refused: only the library's own allocations are to fail.
int depth = 0;

std::recursive_mutex oneThreadAtATime;
thread_local bool isAttached = false;

class Entry
{
public:
   explicit Entry(char const* function, Allowed allowed = Allowed::Never)
   {
      ++depth;
      ++account.calls;
      if (account.pins != 0 && allowed != Allowed::Always) {
         offend(std::string(function) + " while pinned");
      }
      if (state.pending != nullptr && allowed == Allowed::Never) {
         offend(std::string(function) + " while an exception is pending");
      }
   }
   ~Entry() { --depth; }

private:
   std::lock_guard<std::recursive_mutex> const _lock{oneThreadAtATime};
};

bool failsNow()
{
   bool const fails = state.failIn != 0 && --state.failIn == 0;
   state.failed = state.failed || fails;
   return fails;
}

void raise(std::vector<std::string> const& classes, std::optional<std::u16string> const& message)
{
   state.pending = newObject(classes.front());
   state.pending->text = message;
   state.pending->classes = {classes.begin(), classes.end()};
}

// If it is to, for its own reasons or on demand.
bool failsWith(char const* className, bool anyway = false)
{
   return (anyway || failsNow()) && (raise({className}, u"on demand"), true);
}

template <class Element>
Object* arrayOf(std::vector<Element> const& elements)
{
   Object* const array = newObject("array");
   array->length = elements.size();
   auto const* const bytes = reinterpret_cast<std::uint8_t const*>(elements.data());
   array->storage.reserve(1); // that of an empty array has an address too
   array->storage.assign(bytes, bytes + elements.size() * sizeof(Element));
   return array;
}

Object* stringOf(std::u16string const& text)
{
   Object* const string = newObject("java/lang/String");
   string->text = text;
   return string;
}

void* pinned(void* storage) { return failsNow() ? nullptr : (++account.pins, storage); }

// The elements of the core's result, whose octets stand the other way round in the processor.
template <class Elements>
Elements resultAs()
{
   constexpr std::size_t size = sizeof(typename Elements::value_type);
   Elements elements(core.result->size() / size, 0);
   for (std::size_t i = 0; i < elements.size() * size; ++i) {
      reinterpret_cast<std::uint8_t*>(elements.data())[i ^ (size - 1)] = (*core.result)[i];
   }
   return elements;
}

template <class Number>
Number numberReturned()
{
   auto const numbers = core.result ? resultAs<std::vector<Number>>() : std::vector<Number>();
   return numbers.empty() ? Number() : numbers.front();
}

template <class Array, class Element>
void JNICALL getArrayRegion(JNIEnv*, Array array, jsize start, jsize length, Element* to)
{
   Entry const entry("Get<Type>ArrayRegion");
   if (start > static_cast<jsize>(objectOf(array)->length) - length) {
      raise({"java/lang/ArrayIndexOutOfBoundsException"}, u"beyond an array");
      return;
   }
   auto const* const from = reinterpret_cast<Element const*>(objectOf(array)->storage.data());
   std::copy_n(from + start, length, to);
}

void doMeanwhile()
{
   if (auto const action = std::exchange(core.meanwhile, nullptr); action) {
      action();
   }
}

// Enters a method of the core, which gives a result of one of these kinds. False if it raises.
bool call(jmethodID id, jvalue const* arguments, char const* results)
{
   Entry const entry("Call<Type>Method");
   account.lastMethod = methodOf(id);
   if (std::strchr(results, account.lastMethod[account.lastMethod.find(')') + 1]) == nullptr) {
      offend(account.lastMethod + " called as if it gave something else");
   }
   if (arguments != nullptr && arguments->l != nullptr) {
      account.lastMessage = objectOf(arguments->l)->storage;
   }
   doMeanwhile();
   if (!core.raises.empty()) {
      raise(core.raises, core.message);
      return false;
   }
   return !failsWith("java/lang/IllegalStateException");
}

// A function that is one expression.
#define FUNCTION(Name, allowed, Result, parameters, ...) \
   table.Name = [] parameters -> Result {                \
      Entry const entry(#Name, Allowed::allowed);        \
      return __VA_ARGS__;                                \
   };

// The functions, each where the VM has its own.
JNINativeInterface_ functions()
{
   JNINativeInterface_ table{};
   FUNCTION(FindClass, Never, jclass, (JNIEnv*, char const* name),
            failsWith("java/lang/NoClassDefFoundError", std::string(name).rfind(core.lacksClasses, 0) == 0)
               ? nullptr
               : local<jclass>(newObject(name)))
   FUNCTION(GetObjectClass, Never, jclass, (JNIEnv*, jobject object),
            local<jclass>(newObject(objectOf(object)->className)))
   FUNCTION(ExceptionOccurred, WhilePending, jthrowable, (JNIEnv*),
            state.pending == nullptr ? nullptr : local<jthrowable>(state.pending))
   FUNCTION(ExceptionCheck, WhilePending, jboolean, (JNIEnv*),
            state.pending != nullptr ? JNI_TRUE : JNI_FALSE)
   FUNCTION(ExceptionDescribe, WhilePending, void, (JNIEnv*), void())
   FUNCTION(ExceptionClear, WhilePending, void, (JNIEnv*), void(state.pending = nullptr))
   FUNCTION(DeleteGlobalRef, WhilePending, void, (JNIEnv*, jobject), void(--account.globalReferences))
   FUNCTION(GetArrayLength, Never, jsize, (JNIEnv*, jarray array),
            static_cast<jsize>(objectOf(array)->length))
   FUNCTION(GetStringLength, Never, jsize, (JNIEnv*, jstring string),
            static_cast<jsize>(objectOf(string)->text->size()))
   FUNCTION(GetStringCritical, Never, jchar const*, (JNIEnv*, jstring string, jboolean*),
            static_cast<jchar const*>(pinned(objectOf(string)->text->data())))
   FUNCTION(ReleasePrimitiveArrayCritical, Always, void, (JNIEnv*, jarray, void*, jint), void(--account.pins))
   FUNCTION(GetPrimitiveArrayCritical, Never, void*, (JNIEnv*, jarray array, jboolean*),
            pinned(objectOf(array)->storage.data()))
   FUNCTION(NewGlobalRef, Never, jobject, (JNIEnv*, jobject reference),
            failsNow() ? nullptr : (++account.globalReferences, reference))
   FUNCTION(NewByteArray, Never, jbyteArray, (JNIEnv*, jsize length),
            (++account.arraysMade, failsWith("java/lang/OutOfMemoryError"))
               ? nullptr
               : local<jbyteArray>(arrayOf(std::vector<jbyte>(static_cast<std::size_t>(length)))))
   FUNCTION(IsInstanceOf, Never, jboolean, (JNIEnv*, jobject object, jclass cls),
            static_cast<jboolean>(objectOf(object)->classes.count(objectOf(cls)->className)))
   FUNCTION(ReleaseStringCritical, Always, void, (JNIEnv*, jstring, jchar const*), void(--account.pins))
   // Without the methods that the core's ambassador has for the services no ambassador is made, so that each
   // of these is taken away by its name.
   table.GetMethodID = [](JNIEnv*, jclass cls, char const* name, char const* signature) -> jmethodID {
      Entry const entry("GetMethodID");
      bool const ofCore = objectOf(cls)->className == "morva/tovu1516e/RTIambassadorC2007";
      bool const ofService = ofCore && std::strcmp(name, "<init>") != 0;
      std::string const id = name + std::string(" ") + signature;
      bool const isLacking = ofCore && name == core.lacks;
      if ((isLacking || !ofService) && failsWith("java/lang/NoSuchMethodError", isLacking)) {
         return nullptr;
      }
      if (ofCore) {
         account.methods.insert(id);
      }
      return reinterpret_cast<jmethodID>(const_cast<std::string*>(&*methods.insert(id).first));
   };
   table.ThrowNew = [](JNIEnv*, jclass cls, char const* message) -> jint {
      Entry const entry("ThrowNew");
      if (failsWith("java/lang/OutOfMemoryError")) {
         return JNI_ERR;
      }
      raise({objectOf(cls)->className}, std::u16string(message, message + std::strlen(message)));
      return JNI_OK;
   };
   table.DeleteLocalRef = [](JNIEnv*, jobject reference) -> void {
      Entry const entry("DeleteLocalRef", Allowed::WhilePending);
      if (reference != nullptr && --state.locals[objectOf(reference)] < 0) {
         offend("DeleteLocalRef of what is not referenced");
      }
   };
#define CALL_METHOD(Type, result, kind, given)                                                         \
   table.Call##Type##MethodA = [](JNIEnv*, jobject, jmethodID id, jvalue const* arguments) -> result { \
      return call(id, arguments, kind) ? static_cast<result>(given) : result();                        \
   };
   CALL_METHOD(Void, void, "V", 0)
   CALL_METHOD(Int, jint, "I", numberReturned<jint>())
   CALL_METHOD(Boolean, jboolean, "Z", numberReturned<jint>() != 0)
   CALL_METHOD(Long, jlong, "J", numberReturned<jlong>())
   CALL_METHOD(Double, jdouble, "D", numberReturned<jdouble>())
#undef CALL_METHOD
   table.CallObjectMethodA = [](JNIEnv*, jobject, jmethodID id, jvalue const* arguments) -> jobject {
      if (!call(id, arguments, "[L") || !core.result) {
         return nullptr;
      }
      char const kind = methodOf(id).back();
      return local<jobject>(kind == 'B'   ? arrayOf(*core.result)
                            : kind == 'I' ? arrayOf(resultAs<std::vector<jint>>())
                            : kind == 'J' ? arrayOf(resultAs<std::vector<jlong>>())
                                          : stringOf(resultAs<std::u16string>()));
   };
   // Methods of exceptions.
   table.CallObjectMethodV = [](JNIEnv*, jobject object, jmethodID method, std::va_list) -> jobject {
      Entry const entry("CallObjectMethod");
      if (failsWith("java/lang/StackOverflowError")) {
         return nullptr;
      }
      Object const& exception = *objectOf(object);
      if (methodOf(method).rfind("getMessage", 0) == 0) {
         return exception.text ? local<jobject>(stringOf(*exception.text)) : nullptr;
      }
      std::u16string description(exception.className.begin(), exception.className.end());
      std::replace(description.begin(), description.end(), u'/', u'.');
      return local<jobject>(stringOf(exception.text ? description + u": " + *exception.text : description));
   };
   table.CallVoidMethodV = [](JNIEnv*, jobject object, jmethodID, std::va_list) -> void {
      Entry const entry("CallVoidMethod");
      std::fprintf(stderr, "stack trace of %s\n", objectOf(object)->className.c_str());
      failsWith("java/lang/StackOverflowError");
   };
   table.NewObjectV = [](JNIEnv*, jclass cls, jmethodID, std::va_list arguments) -> jobject {
      Entry const entry("NewObject");
      account.lastMessage = objectOf(va_arg(arguments, jobject))->storage;
      doMeanwhile();
      if (!core.result) {
         return nullptr;
      }
      jobject const object = local<jobject>(newObject(objectOf(cls)->className));
      if (!core.raises.empty()) {
         raise(core.raises, core.message);
      }
      failsWith("java/lang/IllegalStateException"); // some VMs give a reference all the same
      return object;
   };
   table.RegisterNatives = [](JNIEnv*, jclass, JNINativeMethod const* entries, jint count) -> jint {
      Entry const entry("RegisterNatives");
      for (jint i = 0; i < count; ++i) {
         natives[entries[i].name] = entries[i].fnPtr;
         account.natives.insert(entries[i].name + std::string(" ") + entries[i].signature);
      }
      return failsWith("java/lang/NoSuchMethodError") ? JNI_ERR : JNI_OK;
   };
   table.GetByteArrayRegion = getArrayRegion<jbyteArray, jbyte>;
   table.GetLongArrayRegion = getArrayRegion<jlongArray, jlong>;
   return table;
}

JNINativeInterface_ const functionTable = functions();

JNIInvokeInterface_ invocationFunctions()
{
   JNIInvokeInterface_ table{};
   table.GetEnv = [](JavaVM*, void** environment, jint) -> jint {
      Entry const entry("GetEnv", Allowed::WhilePending);
      bool const known = isAttached && runtime.attachStatus == JNI_OK;
      *environment = known ? &env : nullptr;
      return known ? JNI_OK : JNI_EDETACHED;
   };
   table.AttachCurrentThread = [](JavaVM*, void** environment, void*) -> jint {
      Entry const entry("AttachCurrentThread", Allowed::WhilePending);
      ++runtime.attachments;
      if (runtime.attachStatus != JNI_OK) {
         return runtime.attachStatus;
      }
      isAttached = true;
      *environment = &env;
      return failsNow() ? JNI_ENOMEM : JNI_OK;
   };
   FUNCTION(DetachCurrentThread, Never, jint, (JavaVM*), (++runtime.detachments, isAttached = false, JNI_OK))
   return table;
}

#undef FUNCTION

JNIInvokeInterface_ const invocationTable = invocationFunctions();

} // namespace

JNIEnv env{&functionTable};
JavaVM vm{&invocationTable};

void reset()
{
   state = State();
   core = Core();
   runtime = Runtime();
   account = Account();
}

std::string remains()
{
   int locals = 0;
   for (auto const& [object, references] : state.locals) {
      locals += references;
   }
   std::string text = std::to_string(locals) + " local, " + std::to_string(account.globalReferences) +
                      " global, " + std::to_string(account.pins) + " pinned" +
                      (state.pending != nullptr ? ", one pending" : "");
   for (auto const& offence : account.offences) {
      text += ", " + offence;
   }
   return text;
}

void failCall(int n)
{
   state.failIn = n;
   state.failed = false;
}
bool hasFailed() { return state.failed; }
bool isInside() { return depth != 0; }

std::string callNative(std::string const& name, contract::Bytes const& message)
{
   using Native = void(JNICALL*)(JNIEnv*, jobject, jbyteArray);
   ++depth;
   auto const native = reinterpret_cast<Native>(natives.at(name));
   auto* const array = reinterpret_cast<jbyteArray>(arrayOf(message));
   --depth;
   native(&env, nullptr, array);
   ++depth;
   std::string described = "none";
   if (state.pending != nullptr) {
      described = state.pending->className + ": ";
      described.append(state.pending->text->begin(), state.pending->text->end());
      state.pending = nullptr;
   }
   --depth;
   return described;
}

} // namespace fake

// The library imports these; the program's own come first.
extern "C" JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM** vms, jsize size, jsize* count)
{
   auto& runtime = fake::runtime;
   ++runtime.queries;
   *count = runtime.alreadyRunning ? 1 : 0;
   if (runtime.alreadyRunning && size > 0) {
      *vms = &fake::vm;
   }
   return runtime.queryStatus;
}

extern "C" JNIEXPORT jint JNICALL JNI_CreateJavaVM(JavaVM** vm, void** env, void* arguments)
{
   auto& runtime = fake::runtime;
   ++runtime.creations;
   runtime.onCreation();
   runtime.arguments = *static_cast<JavaVMInitArgs const*>(arguments);
   runtime.options.clear();
   for (jint i = 0; i < runtime.arguments.nOptions; ++i) {
      runtime.options.emplace_back(runtime.arguments.options[i].optionString);
   }
   if (runtime.createStatus == JNI_OK) {
      *vm = &fake::vm;
      *env = &fake::env;
      fake::isAttached = true;
   }
   return runtime.createStatus;
}

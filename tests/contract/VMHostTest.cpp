// How the Java VM is asked for, and what is said when it cannot be had: this program puts its own JNI entry
// points in front of the Java runtime's. Every test needs a process of its own, for a VM that is there stays.
#include "Caught.h"
#include "ControlWord.h"

#include <RTI/RTIambassadorFactory.h>

#include <jni.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace contract {
namespace {

// A Java runtime that writes down what it is asked for and answers with the status it is told to.
struct FakeRuntime
{
   jint queryStatus = JNI_OK;
   jint createStatus = JNI_OK;
   jint attachStatus = JNI_OK;
   bool alreadyRunning = false;

   int queries = 0;
   int creations = 0;
   int attachments = 0;
   jint version = 0;
   jboolean ignoreUnrecognized = JNI_FALSE;
   std::vector<std::string> options;
   unsigned int controlWordAtCreation = 0;

   // A VM without any class.
   JNINativeInterface_ functions{};
   JNIEnv env{};
   JNIInvokeInterface_ invocation{};
   JavaVM vm{};
};

FakeRuntime fake;

jint attach(JavaVM*, void** env, void*)
{
   ++fake.attachments;
   *env = fake.attachStatus == JNI_OK ? &fake.env : nullptr;
   return fake.attachStatus;
}

void setUpFake()
{
   fake.functions.FindClass = [](JNIEnv*, char const*) -> jclass { return nullptr; };
   fake.functions.ExceptionOccurred = [](JNIEnv*) -> jthrowable { return nullptr; };
   fake.functions.ExceptionCheck = [](JNIEnv*) -> jboolean { return JNI_FALSE; };
   fake.functions.ExceptionDescribe = [](JNIEnv*) {};
   fake.functions.ExceptionClear = [](JNIEnv*) {};
   fake.env.functions = &fake.functions;
   fake.invocation.AttachCurrentThread = attach;
   fake.invocation.GetEnv = [](JavaVM*, void** env, jint) -> jint {
      *env = nullptr;
      return JNI_EDETACHED;
   };
   fake.vm.functions = &fake.invocation;
}

} // namespace
} // namespace contract

extern "C" {

JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM** vms, jsize size, jsize* count)
{
   using contract::fake;
   ++fake.queries;
   *count = fake.alreadyRunning ? 1 : 0;
   if (fake.alreadyRunning && size > 0) {
      *vms = &fake.vm;
   }
   return fake.queryStatus;
}

JNIEXPORT jint JNICALL JNI_CreateJavaVM(JavaVM** vm, void** env, void* arguments)
{
   using contract::fake;
   ++fake.creations;
#if defined(__x86_64__) || defined(__i386__)
   fake.controlWordAtCreation = contract::controlWord();
#endif
   auto const& given = *static_cast<JavaVMInitArgs const*>(arguments);
   fake.version = given.version;
   fake.ignoreUnrecognized = given.ignoreUnrecognized;
   fake.options.clear();
   for (jint i = 0; i < given.nOptions; ++i) {
      EXPECT_EQ(given.options[i].extraInfo, nullptr);
      fake.options.emplace_back(given.options[i].optionString);
   }
   if (fake.createStatus == JNI_OK) {
      *vm = &fake.vm;
      *env = &fake.env;
   }
   return fake.createStatus;
}

} // extern "C"

namespace contract {
namespace {

using Options = std::vector<std::string>;

// Runs in an empty current directory, without any of the library's environment variables.
class VMHostTest : public testing::Test
{
protected:
   VMHostTest()
   {
      setUpFake();
      std::string directory = testing::TempDir() + "/vmhost.XXXXXX";
      _directory = mkdtemp(directory.data());
      std::filesystem::permissions(_directory, std::filesystem::perms(0755));
      std::filesystem::current_path(_directory);
      for (auto const* name : {"CLASSPATH", "TOVU_ENABLEBUNDLING", "TOVU_SINGLETHREAD", "TOVU_VERBOSEJNI"}) {
         unsetenv(name);
      }
      for (int i = 0; i <= 20; ++i) {
         unsetenv(("TOVU1516_OPTION" + std::to_string(i)).c_str());
      }
   }
   ~VMHostTest() override { std::filesystem::remove_all(_directory); }

   // Asks for an ambassador, which the fake runtime can never have, and keeps what is said about it.
   void tryToCreate()
   {
      caught = caughtFrom([] { rti1516e::RTIambassadorFactory().createRTIambassador(); });
   }

   void create()
   {
      testing::internal::CaptureStderr();
      tryToCreate();
      printed = testing::internal::GetCapturedStderr();
   }

   Options const& optionsWithFile(std::string const& content)
   {
      std::ofstream("tovu.vmoptions") << content;
      create();
      return fake.options;
   }

   Caught caught;
   std::string printed;
   Options const fixed = {"-Djava.class.path=", "-DTovu.libraryName=rti1516", "", "", ""};

   Options fixedAnd(Options const& others) const
   {
      Options all = fixed;
      all.insert(all.end(), others.begin(), others.end());
      return all;
   }

private:
   std::filesystem::path _directory;
};

TEST_F(VMHostTest, AsksForSixOptionsByDefault)
{
   create();
   EXPECT_EQ(fake.options, fixedAnd({"-Xss1024k"}));
   EXPECT_EQ(fake.version, JNI_VERSION_1_2);
   EXPECT_EQ(fake.ignoreUnrecognized, JNI_TRUE);
   EXPECT_EQ(caught,
             (Caught{"RTIinternalError", L"Cannot locate Tovu core Java classes\nCLASSPATH: (unknown)"}));
   EXPECT_EQ(printed.rfind("Cannot locate Tovu core Java classes\nCLASSPATH: (unknown)\n", 0), 0) << printed;
}

TEST_F(VMHostTest, TakesOptionsFromTheEnvironment)
{
   setenv("CLASSPATH", "a.jar:b c.jar", 1);
   setenv("TOVU_ENABLEBUNDLING", "", 1);
   setenv("TOVU_SINGLETHREAD", "false", 1);
   setenv("TOVU_VERBOSEJNI", "1", 1);
   setenv("TOVU1516_OPTION0", "never", 1);
   setenv("TOVU1516_OPTION19", "last", 1);
   setenv("TOVU1516_OPTION3", " third ", 1);
   setenv("TOVU1516_OPTION7", "", 1);
   setenv("TOVU1516_OPTION20", "never", 1);
   create();
   EXPECT_EQ(fake.options, (Options{"-Djava.class.path=a.jar:b c.jar", "-DTovu.libraryName=rti1516",
                                    "-DenableBundling=true", "-Dsinglethread=true", "-verbose:jni", " third ",
                                    "", "last", "-Xss1024k"}));
}

TEST_F(VMHostTest, TakesOptionsFromTheFile)
{
   setenv("TOVU1516_OPTION1", "from the environment", 1);
   std::string const longLine = "-D" + std::string(100'000, 'x');
   EXPECT_EQ(optionsWithFile("#comment\n\n  #x\n-Da=b \r\n" + longLine + "\n \n#\n\n-Dlast"),
             fixedAnd({"from the environment", "  #x", "-Da=b \r", longLine, " ", "-Dlast", "-Xss1024k"}));
}

TEST_F(VMHostTest, TakesFiftyOptionsAndTheStackSize)
{
   std::string lines;
   for (int i = 0; i < 60; ++i) {
      lines += i == 46 ? "-Xss2m\n" : std::to_string(i) + "\n";
   }
   auto const& options = optionsWithFile(lines);
   ASSERT_EQ(options.size(), 51U);
   EXPECT_EQ(options[49], "44");
   EXPECT_EQ(options[50], "-Xss1024k");
}

TEST_F(VMHostTest, TheLastOfFiftyOptionsMayBeTheStackSize)
{
   std::string lines;
   for (int i = 0; i < 44; ++i) {
      lines += "x\n";
   }
   auto const& options = optionsWithFile(lines + "-Xss2m\n-Xss3m\n");
   ASSERT_EQ(options.size(), 50U);
   EXPECT_EQ(options.back(), "-Xss2m");
}

TEST_F(VMHostTest, AStackSizeInTheFileStandsForTheDefault)
{
   EXPECT_EQ(optionsWithFile("-Xss4m\n"), fixedAnd({"-Xss4m"}));
}

TEST_F(VMHostTest, AStackSizeInTheEnvironmentStandsForTheDefault)
{
   setenv("TOVU1516_OPTION1", "-Xss512k", 1);
   create();
   EXPECT_EQ(fake.options, fixedAnd({"-Xss512k"}));
}

TEST_F(VMHostTest, WhatOnlyResemblesAStackSizeDoesNot)
{
   EXPECT_EQ(optionsWithFile(" -Xss4m\n-XX:ThreadStackSize=4m\n"),
             fixedAnd({" -Xss4m", "-XX:ThreadStackSize=4m", "-Xss1024k"}));
}

TEST_F(VMHostTest, ADirectoryInPlaceOfTheFileIsPassedOver)
{
   std::filesystem::create_directory("tovu.vmoptions");
   create();
   EXPECT_EQ(fake.options, fixedAnd({"-Xss1024k"}));
}

TEST_F(VMHostTest, AFileThatMayNotBeReadIsPassedOver)
{
   std::ofstream("tovu.vmoptions") << "-Dunseen\n";
   std::filesystem::permissions("tovu.vmoptions", std::filesystem::perms::none);
   auto const self = geteuid();
   if (self == 0) { // whom no permission keeps from reading
      ASSERT_EQ(seteuid(65534), 0);
   }
   create();
   ASSERT_EQ(seteuid(self), 0);
   EXPECT_EQ(fake.options, fixedAnd({"-Xss1024k"}));
}

struct Status
{
   jint code;
   std::string text;
};

std::vector<Status> const statuses = {
   {-1, "Unknown error (-1)"},      {-2, "JVM Detached (-2)"},
   {-3, "JNI Version Error (-3)"},  {-4, "Not enough JVM memory allocated (-4)"},
   {-5, "VM already created (-5)"}, {-6, "Invalid JVM arguments (-6)"},
   {-7, "Unknown JVM error -7"},    {-2147483647, "Unknown JVM error -2147483647"},
};

// A step that fails, by the status that it ends with.
struct Failure
{
   char const* name;
   jint FakeRuntime::*status;
   int FakeRuntime::*count;
   bool alreadyRunning;
   std::string message;
};

class VMHostFailureTest : public VMHostTest, public testing::WithParamInterface<Failure>
{};

TEST_P(VMHostFailureTest, IsPrintedAndThrown)
{
   auto const& failure = GetParam();
   fake.alreadyRunning = failure.alreadyRunning;
   for (auto const& [code, text] : statuses) {
      fake.*failure.status = code;
      create();
      auto const message = failure.message + text + "\n";
      EXPECT_EQ(caught, (Caught{"RTIinternalError", {message.begin(), message.end()}}));
      EXPECT_EQ(printed, message);
   }
   EXPECT_EQ(fake.*failure.count, static_cast<int>(statuses.size()));

   // The next try is a new one, from the options on, and no fork has lost a VM that never was.
   fake.*failure.status = JNI_OK;
   fake.alreadyRunning = false;
   EXPECT_EXIT((tryToCreate(), _exit(fake.creations)), testing::ExitedWithCode(fake.creations + 1), "");
   setenv("TOVU1516_OPTION5", "set meanwhile", 1);
   EXPECT_EQ(optionsWithFile("written meanwhile"),
             fixedAnd({"set meanwhile", "written meanwhile", "-Xss1024k"}));
   EXPECT_EQ(caught.text.find(L"Cannot locate Tovu core Java classes"), 0U);
}

INSTANTIATE_TEST_SUITE_P(
   Each, VMHostFailureTest,
   testing::Values(Failure{"Query", &FakeRuntime::queryStatus, &FakeRuntime::queries, false,
                           "Cannot check for existing JVM. Error: "},
                   Failure{"Attach", &FakeRuntime::attachStatus, &FakeRuntime::attachments, true,
                           "Cannot attach to existing JVM. Error: "},
                   Failure{"Creation", &FakeRuntime::createStatus, &FakeRuntime::creations, false,
                           "Cannot create JVM. Error: "}),
   [](auto const& each) { return each.param.name; });

TEST_F(VMHostTest, FailsWithATextWhenTheThreadCannotBeAttached)
{
   fake.attachStatus = JNI_ENOMEM;
   create();
   EXPECT_EQ(caught, (Caught{"RTIinternalError", L"Cannot attach the thread to the Java VM: "
                                                 "Not enough JVM memory allocated (-4)\n"}));
   EXPECT_EQ(printed, std::string(caught.text.begin(), caught.text.end()));
}

TEST_F(VMHostTest, JoinsAVMThatIsThere)
{
   fake.alreadyRunning = true;
   setenv("TOVU1516_OPTION1", "of no use", 1);
   create();
   EXPECT_EQ(fake.creations, 0);
   EXPECT_GE(fake.attachments, 1);
   EXPECT_EQ(caught.text.find(L"Cannot locate Tovu core Java classes"), 0U);
}

TEST_F(VMHostTest, AsksOnceForTheVMAndAttachesEveryTime)
{
   create();
   create();
   create();
   EXPECT_EQ(fake.queries, 1);
   EXPECT_EQ(fake.creations, 1);
   EXPECT_EQ(fake.attachments, 3);
}

TEST_F(VMHostTest, AClassPathIsNoFormat)
{
   setenv("CLASSPATH", "%s%n100%%/\xC3\xA9", 1);
   create();
   EXPECT_EQ(fake.options.at(0), "-Djava.class.path=%s%n100%%/\xC3\xA9");
   std::string const start = "Cannot locate Tovu core Java classes\nCLASSPATH: ";
   EXPECT_EQ(printed.rfind(start + "%s%n100%/\xC3\xA9\n", 0), 0) << printed;
   EXPECT_NE(printed.find("There is no file %s%n100%%/\xC3\xA9\n"), std::string::npos) << printed;
   EXPECT_EQ(caught.text, std::wstring(start.begin(), start.end()) + L"%s%n100%%/\u00c3\u00a9");
}

TEST_F(VMHostTest, AnEmptyClassPathIsNotAnUnknownOne)
{
   setenv("CLASSPATH", "", 1);
   create();
   EXPECT_EQ(caught.text, L"Cannot locate Tovu core Java classes\nCLASSPATH: ");
}

#if defined(__x86_64__) || defined(__i386__)
TEST_F(VMHostTest, TheVMStartsWithTheControlWordItExpects)
{
   // Exceptions unmasked, rounding up, extended precision.
   constexpr unsigned int federates = 0x0B40;
   constexpr unsigned int expected = 0x027F;
   fake.createStatus = JNI_ERR;
   setControlWord(federates);
   create();
   auto const afterFailure = controlWord();
   fake.createStatus = JNI_OK;
   setControlWord(federates);
   create();
   auto const afterSuccess = controlWord();
   setControlWord(extendedPrecision);
   EXPECT_EQ(fake.controlWordAtCreation, expected);
   EXPECT_EQ(afterFailure, expected);
   EXPECT_EQ(afterSuccess, federates);
}
#endif

} // namespace
} // namespace contract

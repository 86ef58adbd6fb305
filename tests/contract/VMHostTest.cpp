// How the Java VM is asked for, and what is said when it cannot be had. Every test needs a process of its
// own, for a VM that is there stays.
#include "tests/contract/ControlWord.h"
#include "tests/support/Caught.h"
#include "tests/support/FakeJava.h"

#include <RTI/RTIambassadorFactory.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace contract {
namespace {

using fake::Runtime;

using Options = std::vector<std::string>;

std::wstring latin1(std::string const& bytes)
{
   std::wstring text;
   for (char const byte : bytes) {
      text.push_back(static_cast<unsigned char>(byte));
   }
   return text;
}

// Runs in an empty current directory, without any of the library's environment variables.
class VMHostTest : public testing::Test
{
protected:
   VMHostTest()
   {
      fake::reset();
      runtime.alreadyRunning = false;
      fake::core().lacksClasses = "morva/";
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

   // Asks for an ambassador, which a core without classes can never be, and keeps what is said about it.
   void tryToCreate()
   {
      caught = caughtFrom([] { rti1516e::RTIambassadorFactory().createRTIambassador(); });
   }

   void create()
   {
      testing::internal::CaptureStderr();
      tryToCreate();
      printed = testing::internal::GetCapturedStderr();
      EXPECT_EQ(fake::account().offences, std::vector<std::string>());
   }

   // What the VM is asked for in an environment with these settings, and beside a file with these options.
   Options optionsWith(std::map<std::string, std::string> const& settings, std::string const& file = "")
   {
      for (auto const& [name, value] : settings) {
         setenv(name.c_str(), value.c_str(), 1);
      }
      std::ofstream("tovu.vmoptions") << file;
      create();
      for (auto const& [name, value] : settings) {
         unsetenv(name.c_str());
      }
      return runtime.options;
   }

   Runtime& runtime = fake::runtime();
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
   EXPECT_EQ(runtime.options, fixedAnd({"-Xss1024k"}));
   EXPECT_EQ(runtime.version, JNI_VERSION_1_2);
   EXPECT_EQ(runtime.ignoreUnrecognized, JNI_TRUE);
   EXPECT_EQ(caught,
             (Caught{"RTIinternalError", L"Cannot locate Tovu core Java classes\nCLASSPATH: (unknown)"}));
   EXPECT_EQ(printed.rfind("Cannot locate Tovu core Java classes\nCLASSPATH: (unknown)\n", 0), 0) << printed;
}

TEST_F(VMHostTest, TakesOptionsFromEnvironmentAndFile)
{
   runtime.createStatus = JNI_ERR; // every try is a new one
   EXPECT_EQ(
      optionsWith({{"CLASSPATH", "a.jar:b c.jar"},
                   {"TOVU_ENABLEBUNDLING", ""},
                   {"TOVU_SINGLETHREAD", "false"},
                   {"TOVU_VERBOSEJNI", "1"},
                   {"TOVU1516_OPTION0", "never"},
                   {"TOVU1516_OPTION19", "last"},
                   {"TOVU1516_OPTION3", " third "},
                   {"TOVU1516_OPTION7", ""},
                   {"TOVU1516_OPTION20", "never"}}),
      (Options{"-Djava.class.path=a.jar:b c.jar", "-DTovu.libraryName=rti1516", "-DenableBundling=true",
               "-Dsinglethread=true", "-verbose:jni", " third ", "", "last", "-Xss1024k"}));
   std::string const longLine = "-D" + std::string(100'000, 'x');
   EXPECT_EQ(optionsWith({{"TOVU1516_OPTION1", "from the environment"}},
                         "#comment\n\n  #x\n-Da=b \r\n" + longLine + "\n \n#\n\n-Dlast"),
             fixedAnd({"from the environment", "  #x", "-Da=b \r", longLine, " ", "-Dlast", "-Xss1024k"}));

   EXPECT_EQ(optionsWith({}, "-Xss4m\n"), fixedAnd({"-Xss4m"}));
   EXPECT_EQ(optionsWith({{"TOVU1516_OPTION1", "-Xss512k"}}), fixedAnd({"-Xss512k"}));
   EXPECT_EQ(optionsWith({}, " -Xss4m\n-XX:ThreadStackSize=4m\n"),
             fixedAnd({" -Xss4m", "-XX:ThreadStackSize=4m", "-Xss1024k"}));

   // Fifty options and the stack size, which may also be the last of the fifty.
   std::string lines;
   Options all = fixed;
   for (int i = 0; i < 44; ++i) {
      lines += std::to_string(i) + "\n";
      all.push_back(std::to_string(i));
   }
   all.push_back("-Xss2m");
   EXPECT_EQ(optionsWith({}, lines + "-Xss2m\n-Xss3m\n"), all);
   all.back() = "x";
   all.push_back("-Xss1024k");
   EXPECT_EQ(optionsWith({}, lines + "x\ny\n-Xss2m\nz\n"), all);
}

TEST_F(VMHostTest, AFileThatCannotBeReadIsPassedOver)
{
   runtime.createStatus = JNI_ERR;
   std::filesystem::create_directory("tovu.vmoptions");
   create();
   EXPECT_EQ(runtime.options, fixedAnd({"-Xss1024k"}));

   std::filesystem::remove("tovu.vmoptions");
   std::ofstream("tovu.vmoptions") << "-Dunseen\n";
   std::filesystem::permissions("tovu.vmoptions", std::filesystem::perms::none);
   auto const self = geteuid();
   if (self == 0) { // whom no permission keeps from reading
      ASSERT_EQ(seteuid(65534), 0);
   }
   create();
   ASSERT_EQ(seteuid(self), 0);
   EXPECT_EQ(runtime.options, fixedAnd({"-Xss1024k"}));
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
   jint Runtime::*status;
   int Runtime::*count;
   bool alreadyRunning;
   std::string message;
};

class VMHostFailureTest : public VMHostTest, public testing::WithParamInterface<Failure>
{};

TEST_P(VMHostFailureTest, IsPrintedAndThrown)
{
   auto const& failure = GetParam();
   runtime.alreadyRunning = failure.alreadyRunning;
   for (auto const& [code, text] : statuses) {
      runtime.*failure.status = code;
      create();
      auto const message = failure.message + text + "\n";
      EXPECT_EQ(caught, (Caught{"RTIinternalError", {message.begin(), message.end()}}));
      EXPECT_EQ(printed, message);
   }
   EXPECT_EQ(runtime.*failure.count, static_cast<int>(statuses.size()));

   // The next try is a new one, from the options on, and no fork has lost a VM that never was.
   runtime.*failure.status = JNI_OK;
   runtime.alreadyRunning = false;
   EXPECT_EXIT((tryToCreate(), _exit(runtime.creations)), testing::ExitedWithCode(runtime.creations + 1), "");
   EXPECT_EQ(optionsWith({{"TOVU1516_OPTION5", "set meanwhile"}}, "written meanwhile"),
             fixedAnd({"set meanwhile", "written meanwhile", "-Xss1024k"}));
   EXPECT_EQ(caught.text.find(L"Cannot locate Tovu core Java classes"), 0U);
}

INSTANTIATE_TEST_SUITE_P(Each, VMHostFailureTest,
                         testing::Values(Failure{"Query", &Runtime::queryStatus, &Runtime::queries, false,
                                                 "Cannot check for existing JVM. Error: "},
                                         Failure{"Attach", &Runtime::attachStatus, &Runtime::attachments,
                                                 true, "Cannot attach to existing JVM. Error: "},
                                         Failure{"Creation", &Runtime::createStatus, &Runtime::creations,
                                                 false, "Cannot create JVM. Error: "}),
                         [](auto const& each) { return each.param.name; });

TEST_F(VMHostTest, FailsWithATextWhenTheThreadCannotBeAttached)
{
   runtime.attachStatus = JNI_ENOMEM;
   create();
   EXPECT_EQ(caught, (Caught{"RTIinternalError", L"Cannot attach the thread to the Java VM: "
                                                 "Not enough JVM memory allocated (-4)\n"}));
   EXPECT_EQ(printed, std::string(caught.text.begin(), caught.text.end()));
}

TEST_F(VMHostTest, JoinsAVMThatIsThere)
{
   runtime.alreadyRunning = true;
   setenv("TOVU1516_OPTION1", "of no use", 1);
   create();
   EXPECT_EQ(runtime.creations, 0);
   EXPECT_GE(runtime.attachments, 1);
   EXPECT_EQ(caught.text.find(L"Cannot locate Tovu core Java classes"), 0U);
}

TEST_F(VMHostTest, AsksOnceForTheVMAndAttachesEveryTime)
{
   create();
   create();
   create();
   EXPECT_EQ(runtime.queries, 1);
   EXPECT_EQ(runtime.creations, 1);
   EXPECT_EQ(runtime.attachments, 3);
}

TEST_F(VMHostTest, StartsOneVMForThreadsThatComeAtOnce)
{
   std::thread other;
   runtime.onCreation = [&] {
      if (runtime.creations == 1) {
         other = std::thread([] {
            EXPECT_THROW(rti1516e::RTIambassadorFactory().createRTIambassador(), rti1516e::RTIinternalError);
         });
         std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
   };
   create();
   other.join();
   EXPECT_EQ(runtime.creations, 1);
}

TEST_F(VMHostTest, TellsWhatIsWrongWithTheClassPath)
{
   runtime.alreadyRunning = true;
   std::filesystem::create_directory("jars");
   std::ofstream("other.jar") << "not the core";
   std::string const start = "Cannot locate Tovu core Java classes\nCLASSPATH: ";
   struct Case
   {
      std::string classPath, printed;
   };
   for (auto const& [classPath, advice] : std::vector<Case>{
           {"", "\nThe environment variable CLASSPATH is not set.\nSet it before"},
           {"/nowhere/tovu1516e.jar",
            "/nowhere/tovu1516e.jar\nThere is no file /nowhere/tovu1516e.jar\nSet it before"},
           {"jars:jars/*",
            "jars:jars/*\nJars in a folder are not looked into; name each jar: jars\n"
            "Only the java command knows what to do with * in a class path; name each jar: jars/*\nSet"},
           {"other.jar", "other.jar\nNone of these is the jar of a core for this library.\nSet it before"},
           // A class path is no format, and printed as it is.
           {"%s%n100%%/\xC3\xA9", "%s%n100%/\xC3\xA9\nThere is no file %s%n100%%/\xC3\xA9\n"},
        }) {
      setenv("CLASSPATH", classPath.c_str(), 1);
      create();
      EXPECT_EQ(printed.rfind(start + advice, 0), 0U) << printed;
      EXPECT_EQ(caught, (Caught{"RTIinternalError", latin1(start + classPath)}));
   }
}

// What a core may lack, what is thrown (nothing, where it is only told), and what is printed.
TEST_F(VMHostTest, ToleratesOrTellsWhatACoreLacks)
{
   runtime.alreadyRunning = true;
   struct Case
   {
      std::function<void()> arrange;
      std::wstring text;
      std::string printed;
   };
   auto const lacking = [](std::string const& classes) {
      return [classes] { fake::core().lacksClasses = classes; };
   };
   for (auto const& [arrange, text, expected] : std::vector<Case>{
           {lacking("morva/tovu1516e/RTI"), L"Cannot locate Tovu adapter Java classes\nCLASSPATH: (unknown)",
            "Cannot locate Tovu adapter Java classes\n"},
           {lacking("morva/tovu1516e/Fed"), L"",
            "The file tovu1516e.jar can not be found in the CLASSPATH.\n"},
           {lacking("hla/"), L"", ""},
           {[] { fake::core().lacks = "<init>"; },
            L"Cannot locate constructor for Java class morva.tovu1516e.RTIambassadorC2007",
            "Cannot locate constructor"},
           {[] { fake::core().makesNothing = true; },
            L"Cannot create RTIambassador object. Constructor returned NULL\n",
            "Cannot create RTIambassador"},
           {[] { fake::core().constructorRaises = true; }, L"raised", ""},
        }) {
      fake::core() = fake::Core();
      arrange();
      create();
      EXPECT_EQ(caught, (text.empty() ? Caught{} : Caught{"RTIinternalError", text}));
      EXPECT_EQ(printed.find(expected), 0U) << printed;
      auto const& held = fake::account();
      EXPECT_EQ(held.localReferences + held.globalReferences + held.pins, 0);
      EXPECT_FALSE(fake::isExceptionPending());
   }
}

TEST_F(VMHostTest, AnExceptionWhoseClassIsNotThereIsNotThatOne)
{
   runtime.alreadyRunning = true;
   fake::core() = fake::Core();
   auto const ambassador = rti1516e::RTIambassadorFactory().createRTIambassador();
   fake::core().lacksClasses = "hla/rti1516e/exceptions/NotConnected";
   fake::core().raises = {"hla/rti1516e/exceptions/RTIinternalError"};
   EXPECT_EQ(caughtFrom([&] { ambassador->listFederationExecutions(); }),
             (Caught{"RTIinternalError", L"raised"}));
   EXPECT_EQ(fake::account().offences, std::vector<std::string>());
}

#if defined(__x86_64__) || defined(__i386__)
TEST_F(VMHostTest, TheVMStartsWithTheControlWordItExpects)
{
   // Exceptions unmasked, rounding up, extended precision.
   constexpr unsigned int federates = 0x0B40;
   constexpr unsigned int expected = 0x027F;
   unsigned int atCreation = 0;
   runtime.onCreation = [&] { atCreation = controlWord(); };
   runtime.createStatus = JNI_ERR;
   setControlWord(federates);
   create();
   auto const afterFailure = controlWord();
   runtime.createStatus = JNI_OK;
   setControlWord(federates);
   create();
   auto const afterSuccess = controlWord();
   setControlWord(extendedPrecision);
   EXPECT_EQ(atCreation, expected);
   EXPECT_EQ(afterFailure, expected);
   EXPECT_EQ(afterSuccess, federates);
}
#endif

} // namespace
} // namespace contract

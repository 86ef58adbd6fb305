// How the Java VM is asked for, and what is said when it cannot be had. Every test needs a process of its
// own, for a VM that is there stays.
#include "tests/support/Caught.h"
#include "tests/support/FakeJava.h"

#include <RTI/RTIambassadorFactory.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
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

// Runs in an empty current directory, without any of the library's environment variables.
class VMHostTest : public testing::Test
{
protected:
   VMHostTest()
   {
      fake::reset();
      runtime.alreadyRunning = false;
      fake::core.lacksClasses = "morva/";
      std::string directory = testing::TempDir() + "/vmhost.XXXXXX";
      _directory = mkdtemp(directory.data());
      std::filesystem::current_path(_directory);
      clearenv();
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
      EXPECT_EQ(fake::remains(), "0 local, 0 global, 0 pinned");
   }

   // The message is thrown, and printed, or what begins so.
   void expectFailure(std::string const& message, std::string const& beginning = "")
   {
      create();
      auto const* const bytes = reinterpret_cast<unsigned char const*>(message.data());
      EXPECT_EQ(caught, (Caught{"RTIinternalError", {bytes, bytes + message.size()}}));
      EXPECT_EQ(beginning.empty() ? printed : printed.substr(0, beginning.size()),
                beginning.empty() ? message : beginning);
   }

   // In an environment with these settings and beside a file with these lines, the VM is asked for the five
   // options that never change and these.
   void expectOptions(Options const& options, std::string const& file = "",
                      std::map<std::string, std::string> const& settings = {})
   {
      for (auto const& [name, value] : settings) {
         setenv(("TOVU1516_" + name).c_str(), value.c_str(), 1);
      }
      std::ofstream("tovu.vmoptions") << file;
      create();
      clearenv();
      Options all = {"-Djava.class.path=", "-DTovu.libraryName=rti1516", "", "", ""};
      all.insert(all.end(), options.begin(), options.end());
      EXPECT_EQ(runtime.options, all);
   }

   Runtime& runtime = fake::runtime;
   Caught caught;
   std::string printed;

private:
   std::filesystem::path _directory;
};

TEST_F(VMHostTest, TakesOptionsFromEnvironmentAndFile)
{
   runtime.createStatus = JNI_ERR; // every try is a new one
   expectOptions({"-Xss1024k"});
   EXPECT_EQ(runtime.arguments.version, JNI_VERSION_1_2);
   EXPECT_EQ(runtime.arguments.ignoreUnrecognized, JNI_TRUE);
   auto const* const never = "never";
   expectOptions({" third ", "", "last", "-Xss1024k"}, "",
                 {{"OPTION0", never},
                  {"OPTION3", " third "},
                  {"OPTION7", ""},
                  {"OPTION19", "last"},
                  {"OPTION20", never}});
   std::string const longLine = "-D" + std::string(100'000, 'x');
   expectOptions({"from the environment", "  #x", "-Da=b \r", longLine, " ", "-Dlast", "-Xss1024k"},
                 "#comment\n\n  #x\n-Da=b \r\n" + longLine + "\n \n#\n\n-Dlast",
                 {{"OPTION1", "from the environment"}});
   expectOptions({"-Xss4m"}, "-Xss4m\n");
   expectOptions({"-Xss512k"}, "", {{"OPTION1", "-Xss512k"}});
   expectOptions({" -Xss4m", "-XX:ThreadStackSize=4m", "-Xss1024k"}, " -Xss4m\n-XX:ThreadStackSize=4m\n");

   // Fifty options and the stack size, which may also be the last of the fifty.
   std::string lines;
   Options options;
   for (int i = 0; i < 44; ++i) {
      options.push_back(std::to_string(i));
      lines += options.back() + "\n";
   }
   options.emplace_back("-Xss2m");
   expectOptions(options, lines + "-Xss2m\n-Xss3m\n");
   options.back() = "x";
   options.emplace_back("-Xss1024k");
   expectOptions(options, lines + "x\ny\n-Xss2m\nz\n");

   // A file that cannot be read is passed over.
   std::filesystem::remove("tovu.vmoptions");
   std::filesystem::create_directory("tovu.vmoptions");
   expectOptions({"-Xss1024k"});

   for (auto const* name : {"TOVU_ENABLEBUNDLING", "TOVU_SINGLETHREAD", "TOVU_VERBOSEJNI"}) {
      setenv(name, "false", 1); // whatever they are set to
   }
   setenv("CLASSPATH", "a.jar:b c.jar", 1);
   create();
   EXPECT_EQ(runtime.options,
             (Options{"-Djava.class.path=a.jar:b c.jar", "-DTovu.libraryName=rti1516",
                      "-DenableBundling=true", "-Dsinglethread=true", "-verbose:jni", "-Xss1024k"}));
}

TEST_F(VMHostTest, TellsWhichStepFailsAndTriesAgain)
{
   struct
   {
      std::string message;
      jint Runtime::*status;
      int Runtime::*count;
   } const steps[] = {
      {"Cannot check for existing JVM. Error: ", &Runtime::queryStatus, &Runtime::queries},
      {"Cannot attach to existing JVM. Error: ", &Runtime::attachStatus, &Runtime::attachments},
      {"Cannot create JVM. Error: ", &Runtime::createStatus, &Runtime::creations},
   };
   for (auto const& [message, status, count] : steps) {
      runtime.alreadyRunning = status == &Runtime::attachStatus;
      for (auto const* const text : {"Unknown error (-1)", "JVM Detached (-2)", "JNI Version Error (-3)",
                                     "Not enough JVM memory allocated (-4)", "VM already created (-5)",
                                     "Invalid JVM arguments (-6)", "Unknown JVM error -7"}) {
         --(runtime.*status);
         expectFailure(message + text + "\n");
      }
      EXPECT_EQ(runtime.*count, 7);
      runtime.*status = JNI_OK;
   }

   // The next try is a new one, from the options on, and no fork has lost a VM that never was.
   EXPECT_EXIT((tryToCreate(), _exit(runtime.creations)), testing::ExitedWithCode(runtime.creations + 1), "");
   expectOptions({"set meanwhile", "written meanwhile", "-Xss1024k"}, "written meanwhile",
                 {{"OPTION5", "set meanwhile"}});
   EXPECT_EQ(caught.text.find(L"Cannot locate Tovu core Java classes"), 0U);

   // And then the VM is there for good, also where a thread cannot be attached to it.
   auto const before = runtime;
   create();
   runtime.attachStatus = JNI_ENOMEM;
   expectFailure("Cannot attach the thread to the Java VM: Not enough JVM memory allocated (-4)\n");
   EXPECT_EQ(runtime.queries, before.queries);
   EXPECT_EQ(runtime.creations, before.creations);
   EXPECT_EQ(runtime.attachments, before.attachments + 2);
}

TEST_F(VMHostTest, StartsOneVMForThreadsThatComeAtOnce)
{
   fake::core = fake::Core(); // whose exceptions would be those of both threads
   std::future<void> other;
   runtime.onCreation = [&] {
      if (runtime.creations == 1) {
         other =
            std::async(std::launch::async, [] { rti1516e::RTIambassadorFactory().createRTIambassador(); });
         std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
   };
   tryToCreate();
   other.get();
   EXPECT_EQ(fake::remains(), "0 local, 0 global, 0 pinned");
   EXPECT_EQ(runtime.creations, 1);
}

// What is not set, and what is no format. The mistakes that the page on troubleshooting helps with are made
// by its test.
TEST_F(VMHostTest, TellsWhatIsWrongWithTheClassPath)
{
   std::string const start = "Cannot locate Tovu core Java classes\nCLASSPATH: ";
   expectFailure(start + "(unknown)",
                 start + "(unknown)\nThe environment variable CLASSPATH is not set.\nSet it");
   setenv("CLASSPATH", "%s%n100%%/\xC3\xA9", 1);
   expectFailure(start + "%s%n100%%/\xC3\xA9",
                 start + "%s%n100%/\xC3\xA9\nThere is no file %s%n100%%/\xC3\xA9\n");
}

TEST_F(VMHostTest, ToleratesOrTellsWhatACoreLacks)
{
   fake::core.lacksClasses = "morva/tovu1516e/RTI";
   expectFailure("Cannot locate Tovu adapter Java classes\nCLASSPATH: (unknown)",
                 "Cannot locate Tovu adapter");
   fake::core = fake::Core();
   fake::core.lacks = "<init>";
   expectFailure("Cannot locate constructor for Java class morva.tovu1516e.RTIambassadorC2007");
   fake::core = fake::Core();
   fake::core.result.reset();
   expectFailure("Cannot create RTIambassador object. Constructor returned NULL\n");
   fake::core = fake::Core();
   fake::core.raises = {"java/lang/IllegalStateException"};
   create();
   EXPECT_EQ(caught, (Caught{"RTIinternalError", L"raised"}));
   for (auto const& [classes, told] : std::map<std::string, std::string>{
           {"morva/tovu1516e/Fed", "The file tovu1516e.jar can not be found in the CLASSPATH.\n"},
           {"hla/", ""}}) {
      fake::core = fake::Core();
      fake::core.lacksClasses = classes;
      create();
      EXPECT_EQ(caught, Caught());
      EXPECT_EQ(printed.find(told), 0U) << printed;
   }
}

} // namespace
} // namespace contract

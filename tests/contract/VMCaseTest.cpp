// Cases that need a Java VM of their own or end the process: each is run by contract_vm_driver in a process
// with the environment and the current directory that the case is about.
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace contract {
namespace {

namespace fs = std::filesystem;

std::string const jars = CONTRACT_JARS;

std::string jar(std::string const& name) { return jars + "/" + name + ".jar"; }

std::string const recordingCore = jar("recording-core");
std::string const morva = "morva/tovu1516e/";

// A class path of the recording core's classes but for one, in the current directory.
std::string coreWithout(std::string const& missing)
{
   fs::path const core = fs::absolute("core");
   fs::copy(CONTRACT_CORE_CLASSES, core, fs::copy_options::recursive);
   EXPECT_TRUE(fs::remove(core / (missing + ".class")));
   return core;
}

struct Outcome
{
   int status;
   std::string seen; // by the federate
   std::string out;
   std::string err;
};

std::string contentOf(fs::path const& path)
{
   std::ifstream file(path);
   std::ostringstream content;
   content << file.rdbuf();
   return content.str();
}

// Runs in an empty current directory.
class VMCaseTest : public testing::Test
{
protected:
   VMCaseTest()
   {
      std::string directory = testing::TempDir() + "/vmcase.XXXXXX";
      _directory = mkdtemp(directory.data());
      fs::current_path(_directory);
      // Some cases abort, and nobody wants to look into the remains.
      rlimit const none{0, 0};
      setrlimit(RLIMIT_CORE, &none);
      for (auto const* inherited :
           {"PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TOVU1516_OPTION1"}) {
         if (auto const* value = std::getenv(inherited)) {
            environment[inherited] = value;
         }
      }
      environment["CLASSPATH"] = recordingCore;
   }
   ~VMCaseTest() override { fs::remove_all(_directory); }

   Outcome run(std::string const& driverCase)
   {
      std::string command = "exec env -i";
      for (auto const& [name, value] : environment) {
         command += " '" + name + "=" + value + "'";
      }
      command += " " CONTRACT_VM_DRIVER " '" + driverCase + "' >out 2>err";
      Outcome outcome{};
      outcome.status = std::system(command.c_str());
      outcome.seen = contentOf("seen");
      outcome.out = contentOf("out");
      outcome.err = contentOf("err");
      for (auto const* complaint : {"WARNING in native method", "WARNING: JNI", "FATAL ERROR"}) {
         EXPECT_EQ((outcome.out + outcome.err).find(complaint), std::string::npos)
            << outcome.out << outcome.err;
      }
      return outcome;
   }

   // Runs a case that ends well and returns what the federate has seen.
   std::string seenBy(std::string const& driverCase)
   {
      auto const outcome = run(driverCase);
      EXPECT_TRUE(WIFEXITED(outcome.status) && WEXITSTATUS(outcome.status) == 0) << outcome.status << '\n'
                                                                                 << outcome.err;
      lastError = outcome.err;
      return outcome.seen;
   }

   // Creating an ambassador fails with the text, which is also printed.
   void expectSetupFailure(std::string const& text, std::string const& advice)
   {
      EXPECT_EQ(seenBy("create"), "RTIinternalError: " + text + "\n");
      EXPECT_TRUE(printedError(text) && printedError(advice)) << lastError;
   }

   void expectWorking() { EXPECT_EQ(seenBy("call"), "the name\n") << lastError; }

   bool printedError(std::string const& text) const { return lastError.find(text) != std::string::npos; }

   // What the driver sees that uses an ambassador, makes another and destroys the first.
   std::string const working = "nothing: \nnothing: \ndestroyed\n";

   std::map<std::string, std::string> environment;
   std::string lastError;

private:
   fs::path _directory;
};

TEST_F(VMCaseTest, NoUsableCore)
{
   std::ofstream("no.jar") << "not a jar at all";
   struct Case
   {
      std::string classPath;
      std::string text;
      std::string advice; // printed behind the text
   };
   std::string const noCore = "Cannot locate Tovu core Java classes\nCLASSPATH: ";
   std::string const incomplete = coreWithout(morva + "RTIambassadorC2007");
   environment.erase("CLASSPATH");
   expectSetupFailure(noCore + "(unknown)",
                      "\nThe environment variable CLASSPATH is not set.\nSet it before");
   for (auto const& [classPath, text, advice] : std::vector<Case>{
           {"/nowhere/tovu1516e.jar", noCore + "/nowhere/tovu1516e.jar",
            "\nThere is no file /nowhere/tovu1516e.jar\nSet it before"},
           {jar("chained-exceptions"), noCore + jar("chained-exceptions"),
            "\nNone of these is the jar of a core for this library.\nSet it before"},
           {"no.jar", noCore + "no.jar", ""},
           {incomplete, "Cannot locate Tovu adapter Java classes\nCLASSPATH: " + incomplete, ""},
           {jar("lacks-init") + ":" + recordingCore,
            "Cannot locate constructor for Java class morva.tovu1516e.RTIambassadorC2007", ""},
        }) {
      SCOPED_TRACE(classPath);
      environment["CLASSPATH"] = classPath;
      expectSetupFailure(text, advice);
   }
}

TEST_F(VMCaseTest, CoreWhoseConstructorThrows)
{
   environment["TOVU1516_OPTION3"] = "-Drecording.constructor=java.lang.IllegalStateException:no licence";
   EXPECT_EQ(seenBy("create"), "RTIinternalError: no licence\n");
   EXPECT_TRUE(printedError("java.lang.IllegalStateException: no licence\n")) << lastError;
   EXPECT_FALSE(printedError("Unhandled exception")) << lastError;

   environment["TOVU1516_OPTION3"] = "-Drecording.constructor=java.lang.StackOverflowError";
   EXPECT_EQ(seenBy("create"), "RTIinternalError: java.lang.StackOverflowError\n");
}

TEST_F(VMCaseTest, CoreWithoutFederateAmbassadorClass)
{
   environment["CLASSPATH"] = coreWithout(morva + "FederateAmbassadorC2007");
   expectWorking();
   EXPECT_TRUE(printedError("The file tovu1516e.jar can not be found in the CLASSPATH.\n")) << lastError;
}

TEST_F(VMCaseTest, CoreWithoutOneNative)
{
   environment["CLASSPATH"] = jar("lacks-native") + ":" + recordingCore;
   expectWorking();
   EXPECT_TRUE(printedError("Failed to register native functions.\n")) << lastError;
}

TEST_F(VMCaseTest, CoreWithoutOneExceptionClass)
{
   environment["CLASSPATH"] = coreWithout("hla/rti1516e/exceptions/NotConnected");
   EXPECT_EQ(seenBy("exception that follows one without class"), "RTIinternalError: why\n");
   EXPECT_EQ(lastError, "");
}

TEST_F(VMCaseTest, BrokenOption)
{
   environment["TOVU1516_OPTION3"] = "-Xmxplenty";
   expectSetupFailure("Cannot create JVM. Error: Invalid JVM arguments (-6)\n", "");
}

TEST_F(VMCaseTest, UnknownOptions)
{
   environment["TOVU1516_OPTION3"] = "-Zunheard-of";
   environment["TOVU1516_OPTION4"] = "no option at all";
   expectWorking();
}

TEST_F(VMCaseTest, OptionsReachTheVM)
{
   environment["TOVU1516_OPTION3"] = "-Dfrom.environment=yes";
   environment["TOVU_SINGLETHREAD"] = "";
   std::ofstream("tovu.vmoptions") << "# a comment\n\n-Dfrom.file=yes as well\n-Xss2m";
   EXPECT_EQ(seenBy("properties"), "from.environment=yes\nfrom.file=yes as well\n"
                                   "Tovu.libraryName=rti1516\nsinglethread=true\n");
}

TEST_F(VMCaseTest, VMOfTheApplication)
{
   environment["CLASSPATH"] = "/nowhere";
   environment["APPLICATION_CLASSPATH"] = recordingCore;
   environment["TOVU1516_OPTION3"] = "-Dfrom.environment=yes";
   std::ofstream("tovu.vmoptions") << "-Dfrom.file=yes";
   EXPECT_EQ(seenBy("VM of the application"),
             "created: 0\nfrom.environment=(not set)\nfrom.file=(not set)\n");
   EXPECT_EQ(lastError, "");
}

TEST_F(VMCaseTest, VMThatIsGone)
{
   std::string const text = "RTIinternalError: Cannot attach the thread to the Java VM: Unknown error (-1)\n";
   std::string const destroyed = text + text + "\ndestroyed\n";
   EXPECT_EQ(seenBy("VM that is destroyed"), "destroyed VM: 0\n" + destroyed);
   EXPECT_EQ(seenBy("static ambassador when Java exits"), destroyed);
   EXPECT_EQ(seenBy("static ambassador in a callback when Java exits"), destroyed);
   EXPECT_EQ(seenBy("static ambassador"), working);
}

TEST_F(VMCaseTest, VMThatAForkHasNot)
{
   std::string const text =
      "RTIinternalError: The Java VM of a process does not live on in the child of a fork\n";
   EXPECT_EQ(seenBy("fork while in a callback"), text + text + "\ndestroyed\nchild: 0\nnothing\n" + working);
}

TEST_F(VMCaseTest, ThreadThatIsCancelledWhileItEvokes)
{
   EXPECT_EQ(seenBy("thread that is cancelled while it evokes"), "left the callback\ncancelled\n" + working);
}

TEST_F(VMCaseTest, UnknownExceptionsOfCallbacksEndTheProcessWhereJavaBegins)
{
   environment["TOVU1516_DONTCATCHALL"] = "";
   auto const outcome = run("callback throws an int");
   EXPECT_TRUE(WIFSIGNALED(outcome.status) && WTERMSIG(outcome.status) == SIGABRT) << outcome.status;
   EXPECT_NE(outcome.err.find("terminate called after throwing an instance of 'int'"), std::string::npos)
      << outcome.err;
}

} // namespace
} // namespace contract

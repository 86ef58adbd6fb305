// Cases that need a Java VM of their own or end the process: each is run by contract_vm_driver in a process
// with the environment and the current directory that the case is about.
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <spawn.h>
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

// A class path of the recording core's classes that are chosen, in the current directory.
template <class Chosen>
std::string coreOf(Chosen chosen)
{
   fs::path const all = CONTRACT_CORE_CLASSES;
   for (auto const& entry : fs::recursive_directory_iterator(all)) {
      auto const name = fs::relative(entry.path(), all);
      if (name.extension() == ".class" && chosen(name.string())) {
         fs::create_directories(fs::absolute("core") / name.parent_path());
         fs::copy_file(entry.path(), fs::absolute("core") / name);
      }
   }
   return fs::absolute("core");
}

std::string coreWithout(std::string const& missing)
{
   return coreOf([&](std::string const& name) { return name != missing + ".class"; });
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
   }
   ~VMCaseTest() override { fs::remove_all(_directory); }

   Outcome run(std::string const& driverCase)
   {
      std::vector<std::string> settings;
      for (auto const& [name, value] : environment) {
         settings.push_back(name + "=" + value);
      }
      std::vector<char*> pointers;
      for (auto& setting : settings) {
         pointers.push_back(setting.data());
      }
      pointers.push_back(nullptr);
      std::string program = CONTRACT_VM_DRIVER;
      std::string argument = driverCase;
      char* arguments[] = {program.data(), argument.data(), nullptr};

      posix_spawn_file_actions_t actions;
      posix_spawn_file_actions_init(&actions);
      posix_spawn_file_actions_addopen(&actions, 1, "out", O_CREAT | O_TRUNC | O_WRONLY, 0600);
      posix_spawn_file_actions_addopen(&actions, 2, "err", O_CREAT | O_TRUNC | O_WRONLY, 0600);
      pid_t child = 0;
      EXPECT_EQ(posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, pointers.data()), 0);
      posix_spawn_file_actions_destroy(&actions);
      Outcome outcome{};
      waitpid(child, &outcome.status, 0);
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

   // Runs a case that aborts and returns what it wrote to its standard error stream.
   std::string lastWordsOf(std::string const& driverCase)
   {
      auto const outcome = run(driverCase);
      EXPECT_TRUE(WIFSIGNALED(outcome.status) && WTERMSIG(outcome.status) == SIGABRT) << outcome.status;
      return outcome.err;
   }

   // Creating an ambassador fails with the text, which is also printed.
   void expectSetupFailure(std::string const& text)
   {
      EXPECT_EQ(seenBy("create"), "RTIinternalError: " + text + "\n");
      EXPECT_NE(lastError.find(text), std::string::npos) << lastError;
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

TEST_F(VMCaseTest, NoClassPath)
{
   expectSetupFailure("Cannot locate Tovu core Java classes\nCLASSPATH: (unknown)");
   EXPECT_TRUE(printedError("\nThe environment variable CLASSPATH is not set.\nSet it before")) << lastError;
}

TEST_F(VMCaseTest, NoJar)
{
   environment["CLASSPATH"] = "/nowhere/tovu1516e.jar";
   expectSetupFailure("Cannot locate Tovu core Java classes\nCLASSPATH: /nowhere/tovu1516e.jar");
   EXPECT_TRUE(printedError("\nThere is no file /nowhere/tovu1516e.jar\nSet it before")) << lastError;
}

TEST_F(VMCaseTest, JarWithoutTheCore)
{
   environment["CLASSPATH"] = jar("chained-exceptions");
   expectSetupFailure("Cannot locate Tovu core Java classes\nCLASSPATH: " + environment["CLASSPATH"]);
   EXPECT_TRUE(printedError("\nNone of these is the jar of a core for this library.\nSet it before"))
      << lastError;
}

TEST_F(VMCaseTest, FileThatIsNoJar)
{
   std::ofstream("no.jar") << "not a jar at all";
   environment["CLASSPATH"] = "no.jar";
   expectSetupFailure("Cannot locate Tovu core Java classes\nCLASSPATH: no.jar");
}

TEST_F(VMCaseTest, CoreWithoutAmbassadorClass)
{
   environment["CLASSPATH"] = coreWithout(morva + "RTIambassadorC2007");
   expectSetupFailure("Cannot locate Tovu adapter Java classes\nCLASSPATH: " + environment["CLASSPATH"]);
}

TEST_F(VMCaseTest, CoreWithoutOneMethod)
{
   environment["CLASSPATH"] = jar("lacks-retractMRH") + ":" + recordingCore;
   auto const words = lastWordsOf("create");
   EXPECT_EQ(words.rfind("The core on the CLASSPATH is of another version than this library", 0), 0) << words;
   std::regex const report("Cannot locate retract_MRH\\.\n.*id != 0.*gen/cpp/RTIambassadorC\\b.*\n");
   EXPECT_TRUE(std::regex_search(words, report)) << words;
}

TEST_F(VMCaseTest, CoreWithoutConstructor)
{
   environment["CLASSPATH"] = jar("lacks-init") + ":" + recordingCore;
   expectSetupFailure("Cannot locate constructor for Java class morva.tovu1516e.RTIambassadorC2007");
}

TEST_F(VMCaseTest, CoreWhoseConstructorThrows)
{
   environment["CLASSPATH"] = recordingCore;
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
   environment["CLASSPATH"] = recordingCore;
   environment["TOVU1516_OPTION3"] = "-Xmxplenty";
   expectSetupFailure("Cannot create JVM. Error: Invalid JVM arguments (-6)\n");
}

TEST_F(VMCaseTest, UnknownOptions)
{
   environment["CLASSPATH"] = recordingCore;
   environment["TOVU1516_OPTION3"] = "-Zunheard-of";
   environment["TOVU1516_OPTION4"] = "no option at all";
   expectWorking();
}

TEST_F(VMCaseTest, OptionsReachTheVM)
{
   environment["CLASSPATH"] = recordingCore;
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
   EXPECT_EQ(seenBy("the application's VM"), "created: 0\nfrom.environment=(not set)\nfrom.file=(not set)\n");
   EXPECT_EQ(lastError, "");
}

TEST_F(VMCaseTest, VMThatIsGone)
{
   environment["CLASSPATH"] = recordingCore;
   std::string const text = "RTIinternalError: Cannot attach the thread to the Java VM: Unknown error (-1)\n";
   std::string const destroyed = text + text + "\ndestroyed\n";
   EXPECT_EQ(seenBy("VM that is destroyed"), "destroyed VM: 0\n" + destroyed);
   EXPECT_EQ(seenBy("static ambassador when Java exits"), destroyed);
   EXPECT_EQ(seenBy("static ambassador in a callback when Java exits"), destroyed);
   EXPECT_EQ(seenBy("static ambassador"), working);
}

TEST_F(VMCaseTest, VMThatAForkHasNot)
{
   environment["CLASSPATH"] = recordingCore;
   std::string const text =
      "RTIinternalError: The Java VM of a process does not live on in the child of a fork\n";
   std::string const child = text + text + "\ndestroyed\nchild: 0\n";
   EXPECT_EQ(seenBy("fork"), child + working);
   EXPECT_EQ(seenBy("fork while in a callback"), child + "nothing\n" + working);
   EXPECT_EQ(seenBy("fork while another thread is in a callback"), child);
}

TEST_F(VMCaseTest, ThreadThatIsCancelledWhileItEvokes)
{
   environment["CLASSPATH"] = recordingCore;
   EXPECT_EQ(seenBy("thread that is cancelled while it evokes"), "left the callback\ncancelled\n" + working);
}

TEST_F(VMCaseTest, DefaultTimeLibrary)
{
   environment["CLASSPATH"] = recordingCore;
   EXPECT_EQ(seenBy("default time library"), "HLAinteger64Time\nHLAfloat64Time\nnone\n");
}

TEST_F(VMCaseTest, UnknownExceptionsOfCallbacksAreCaught)
{
   environment["CLASSPATH"] = recordingCore;
   std::string const internalError = "hla.rti1516e.exceptions.FederateInternalError: ";
   EXPECT_EQ(seenBy("callback throws an int"), internalError + "Unknown C++ exception\n");
   // Any value tells not to, even an empty one; what is known is caught all the same.
   environment["TOVU1516_DONTCATCHALL"] = "";
   EXPECT_EQ(seenBy("callback throws an exception of the interface"), internalError + "x\n");
   EXPECT_EQ(seenBy("callback throws a text"), internalError + "x\n");
   auto const words = lastWordsOf("callback throws an int");
   EXPECT_NE(words.find("terminate called after throwing an instance of 'int'"), std::string::npos) << words;
}

struct Assertion
{
   std::string driverCase;
   std::string expression;
   std::string unit;
   std::string line; // a pattern, where it is the source's
};

class AssertionTest : public VMCaseTest, public testing::WithParamInterface<Assertion>
{};

TEST_P(AssertionTest, NamesExpressionUnitAndLine)
{
   auto const& [driverCase, expression, unit, line] = GetParam();
   environment["CLASSPATH"] = recordingCore;
   auto const words = lastWordsOf(driverCase);
   std::regex const report("(^|\n).*" + expression + ".*" + unit + "\\b.*\\b" + line + "\\b.*\n");
   EXPECT_TRUE(std::regex_search(words, report)) << words;
}

std::string const encoder = "gen/cpp_handwritten/Encoder";
std::string const decoder = "gen/cpp_handwritten/Decoder";
std::string const callbacks = "gen/cpp/FederateAmbassadorC";

INSTANTIATE_TEST_SUITE_P(Each, AssertionTest,
                         testing::ValuesIn(std::vector<Assertion>{
                            {"bad first magic", "preMagic == PRE_MAGIC", callbacks, "[0-9]+"},
                            {"bad last magic", "postMagic == POST_MAGIC", callbacks, "[0-9]+"},
                            {"time before any join", "postMagic == POST_MAGIC", callbacks, "[0-9]+"},
                            {"write OT", "false", encoder, "151"},
                            {"write OT 0", "false", encoder, "151"},
                            {"write RA", "false", encoder, "127"},
                            {"write TTH", "false", encoder, "139"},
                            {"write SG", "false", encoder, "173"},
                            {"result OT", "false", encoder, "263"},
                            {"result TTH", "false", encoder, "247"},
                            {"read OT", "false", decoder, "628"},
                            {"read TTH", "false", decoder, "655"},
                            {"read TTH 0", "false", decoder, "655"},
                            {"read SPFR", "false", decoder, "112"},
                            {"read SFR", "false", decoder, "150"},
                            {"read SFR below", "false", decoder, "150"},
                            {"read RFR", "false", decoder, "187"},
                            {"read save status", "false", decoder, "406"},
                            {"read restore status", "false", decoder, "364"},
                         }),
                         [](auto const& each) {
                            std::string name = each.param.driverCase;
                            for (char& c : name) {
                               c = c == ' ' ? '_' : c;
                            }
                            return name;
                         });

} // namespace
} // namespace contract

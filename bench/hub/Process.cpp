#include "bench/hub/Process.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace bench {
namespace {

void check(bool holds, char const* what)
{
   if (!holds) {
      throw std::system_error(errno, std::generic_category(), what);
   }
}

[[noreturn]] void become(std::vector<std::string> const& command, int core, int in, int out)
{
   if (core != Process::anyCore) {
      cpu_set_t cores;
      CPU_ZERO(&cores);
      CPU_SET(static_cast<std::size_t>(core), &cores);
      sched_setaffinity(0, sizeof cores, &cores);
   }
   dup2(in, STDIN_FILENO);
   dup2(out, STDOUT_FILENO);
   std::vector<char*> arguments;
   for (std::string const& each : command) {
      arguments.push_back(const_cast<char*>(each.c_str()));
   }
   arguments.push_back(nullptr);
   execv(arguments[0], arguments.data());
   _exit(127);
}

} // namespace

Process::Process(std::vector<std::string> const& command, int core)
   : _name(command.at(0) + " " + command.at(1))
{
   int in[2];
   int out[2];
   check(pipe2(in, O_CLOEXEC) == 0 && pipe2(out, O_CLOEXEC) == 0, "pipe");
   _id = fork();
   check(_id >= 0, "fork");
   if (_id == 0) {
      become(command, core, in[0], out[1]);
   }
   close(in[0]);
   close(out[1]);
   _in = fdopen(in[1], "w");
   _out = fdopen(out[0], "r");
}

Process::~Process()
{
   if (_terminate) {
      kill(_id, SIGTERM);
   }
   std::fclose(_in);
   waitpid(_id, nullptr, 0);
   std::fclose(_out);
}

void Process::say(std::string const& line)
{
   std::fputs((line + "\n").c_str(), _in);
   std::fflush(_in);
}

std::string Process::line()
{
   char text[256];
   if (std::fgets(text, sizeof text, _out) == nullptr) {
      throw std::runtime_error(_name + " has ended too early");
   }
   std::string const line = text;
   return line.substr(0, line.find('\n'));
}

double Process::used() const
{
   std::ifstream in("/proc/" + std::to_string(_id) + "/stat");
   std::string word;
   for (int i = 0; i < 13; ++i) { // what the process is called has no blank
      in >> word;
   }
   double user = 0;
   double system = 0;
   in >> user >> system;
   return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK)) * 1e6;
}

} // namespace bench

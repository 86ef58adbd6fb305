// A program that was started and is talked to by lines.
#pragma once

#include <cstdio>
#include <string>
#include <sys/types.h>
#include <vector>

namespace bench {

class Process
{
public:
   static int const anyCore = -1;

   explicit Process(std::vector<std::string> const& command, int core = anyCore);
   // Closes its input, which tells it to end, and waits until it has; one that serves is asked to.
   ~Process();
   Process(Process const&) = delete;
   Process& operator=(Process const&) = delete;

   void say(std::string const& line);
   std::string line();

   pid_t id() const { return _id; }

   // Processor time that it has taken, in us.
   double used() const;
   void terminateAtEnd() { _terminate = true; }

private:
   std::string const _name;
   pid_t _id = 0;
   FILE* _in = nullptr;
   FILE* _out = nullptr;
   bool _terminate = false;
};

} // namespace bench

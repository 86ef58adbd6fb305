#pragma once

#include <fstream>
#include <unistd.h>

// Resident memory of this process, in kilobytes.
inline long residentMemory()
{
   std::ifstream statm("/proc/self/statm");
   long total = 0;
   long resident = 0;
   statm >> total >> resident;
   return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

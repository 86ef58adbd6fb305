// A ZooKeeper that hubs can be one service by, in a folder that goes with it.
#pragma once

#include "bench/hub/Process.h"

#include <memory>
#include <string>

namespace bench {

class ZooKeeper
{
public:
   static bool isInstalled();

   ZooKeeper();
   ~ZooKeeper();
   ZooKeeper(ZooKeeper const&) = delete;
   ZooKeeper& operator=(ZooKeeper const&) = delete;

   // For the option --cluster.
   std::string servers() const { return "127.0.0.1:" + std::to_string(_port); }

private:
   std::string const _folder;
   int const _port;
   std::unique_ptr<Process> _process;
};

} // namespace bench

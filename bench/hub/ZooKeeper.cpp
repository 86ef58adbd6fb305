#include "bench/hub/ZooKeeper.h"

#include <arpa/inet.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace bench {
namespace {

constexpr char jar[] = "/usr/share/java/zookeeper.jar";
constexpr char silence[] = "/usr/share/java/slf4j-nop.jar";
constexpr int patience = 30; // seconds

class Socket
{
public:
   Socket() : _descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}
   ~Socket() { close(_descriptor); }
   Socket(Socket const&) = delete;
   Socket& operator=(Socket const&) = delete;

   bool connects(int port)
   {
      sockaddr_in const to = local(port);
      return connect(_descriptor, reinterpret_cast<sockaddr const*>(&to), sizeof to) == 0;
   }

   int freePort()
   {
      sockaddr_in at = local(0);
      socklen_t size = sizeof at;
      if (bind(_descriptor, reinterpret_cast<sockaddr*>(&at), size) != 0 ||
          getsockname(_descriptor, reinterpret_cast<sockaddr*>(&at), &size) != 0) {
         throw std::runtime_error("there is no free port");
      }
      return ntohs(at.sin_port);
   }

private:
   static sockaddr_in local(int port)
   {
      sockaddr_in address{};
      address.sin_family = AF_INET;
      address.sin_port = htons(static_cast<in_port_t>(port));
      address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
      return address;
   }

   int const _descriptor;
};

std::string madeFolder()
{
   char folder[] = "/tmp/hub_bench.XXXXXX";
   return mkdtemp(folder);
}

} // namespace

bool ZooKeeper::isInstalled() { return std::filesystem::exists(jar) && std::filesystem::exists(silence); }

ZooKeeper::ZooKeeper() : _folder(madeFolder()), _port(Socket().freePort())
{
   std::string const settings = _folder + "/zoo.cfg";
   std::ofstream(settings) << "tickTime=3000\ndataDir=" << _folder << "\nclientPort=" << _port
                           << "\nclientPortAddress=127.0.0.1\nadmin.enableServer=false\n";
   _process = std::make_unique<Process>(
      std::vector<std::string>{"/usr/bin/env", "java", "-cp", std::string(jar) + ":" + silence,
                               "org.apache.zookeeper.server.quorum.QuorumPeerMain", settings});
   _process->terminateAtEnd();
   auto const end = std::chrono::steady_clock::now() + std::chrono::seconds(patience);
   while (!Socket().connects(_port)) {
      if (std::chrono::steady_clock::now() > end) {
         throw std::runtime_error("ZooKeeper does not listen");
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
   }
}

ZooKeeper::~ZooKeeper()
{
   _process.reset();
   std::filesystem::remove_all(_folder);
}

} // namespace bench

// The bare transport: what a hub's messages would take if nobody looked at them.
#include "bench/hub/Parts.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace bench {
namespace {

using Message = std::array<char, 64>;

void check(bool holds, char const* what)
{
   if (!holds) {
      throw std::system_error(errno, std::generic_category(), what);
   }
}

class Connection
{
public:
   explicit Connection(int socket) : _socket(socket)
   {
      int const on = 1;
      setsockopt(_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
   }
   ~Connection() { close(_socket); }
   Connection(Connection const&) = delete;
   Connection& operator=(Connection const&) = delete;

   static int to(std::string const& port)
   {
      int const made = socket(AF_INET, SOCK_STREAM, 0);
      sockaddr_in address{};
      address.sin_family = AF_INET;
      address.sin_port = htons(static_cast<std::uint16_t>(std::stoi(port)));
      address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
      check(connect(made, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0, "connect");
      return made;
   }

   void write(char const* data, std::size_t size)
   {
      check(::write(_socket, data, size) == static_cast<ssize_t>(size), "write");
   }
   // All that is there, or nothing at the end.
   std::size_t read(char* data, std::size_t size)
   {
      ssize_t const count = ::read(_socket, data, size);
      check(count >= 0, "read");
      return static_cast<std::size_t>(count);
   }
   // Exactly so much; false at the end.
   bool readAll(char* data, std::size_t size)
   {
      for (std::size_t got = 0; got < size;) {
         std::size_t const count = read(data + got, size - got);
         if (count == 0) {
            return false;
         }
         got += count;
      }
      return true;
   }

private:
   int const _socket;
};

// Says on which port it listens.
class Listener
{
public:
   Listener() : _socket(socket(AF_INET, SOCK_STREAM, 0))
   {
      sockaddr_in address{};
      address.sin_family = AF_INET;
      address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
      socklen_t size = sizeof address;
      auto* const general = reinterpret_cast<sockaddr*>(&address);
      check(bind(_socket, general, size) == 0 && listen(_socket, 2) == 0, "listen");
      check(getsockname(_socket, general, &size) == 0, "getsockname");
      std::cout << ntohs(address.sin_port) << std::endl;
   }
   ~Listener() { close(_socket); }
   Listener(Listener const&) = delete;
   Listener& operator=(Listener const&) = delete;

   int accept() { return ::accept(_socket, nullptr, nullptr); }

private:
   int const _socket;
};

} // namespace

void answerPings(Arguments const&)
{
   Listener listener;
   Connection pinging(listener.accept());
   Message message;
   while (pinging.readAll(message.data(), message.size())) {
      pinging.write(message.data(), message.size());
   }
}

void ping(Arguments const& port)
{
   Connection connection(Connection::to(port.at(0)));
   Message message{};
   repeatAsTold([&] {
      connection.write(message.data(), message.size());
      connection.readAll(message.data(), message.size());
   });
}

void relay(Arguments const&)
{
   Listener listener;
   Connection receiver(listener.accept());
   Connection sender(listener.accept());
   std::array<char, 1 << 16> data;
   for (std::size_t size = sender.read(data.data(), data.size()); size > 0;
        size = sender.read(data.data(), data.size())) {
      receiver.write(data.data(), size);
   }
}

void sendToRelay(Arguments const& port)
{
   Connection connection(Connection::to(port.at(0)));
   std::vector<char> waiting;
   auto const flush = [&] {
      connection.write(waiting.data(), waiting.size());
      waiting.clear();
   };
   sendAsTold(
      [&](std::int64_t value) {
         Message message{};
         std::memcpy(message.data(), &value, sizeof value);
         waiting.insert(waiting.end(), message.begin(), message.end());
         if (waiting.size() >= (1 << 16)) {
            flush();
         }
      },
      flush);
}

void receiveFromRelay(Arguments const& port)
{
   Connection connection(Connection::to(port.at(0)));
   std::array<char, 1 << 16> data;
   std::size_t size = 0;
   std::cout << "ready" << std::endl;
   receiveAsTold([&](Arrivals& arrivals) {
      size += connection.read(data.data() + size, data.size() - size);
      std::size_t at = 0;
      for (; size - at >= sizeof(Message); at += sizeof(Message)) {
         std::int64_t value = 0;
         std::memcpy(&value, data.data() + at, sizeof value);
         arrivals.add(value);
      }
      std::memmove(data.data(), data.data() + at, size - at);
      size -= at;
   });
}

} // namespace bench

// An air-traffic picture: two airlines fly aircraft through three sectors, whose controllers clear them and
// hand them over to each other, and a radar shows what comes within its coverage. Six federates, each on a
// thread of its own, in step with logical time. In the end the run is checked from what each of them has
// seen.
//
// Usage: airtraffic FOM-MODULE, with CLASSPATH naming the jar of the infrastructure's core. Or each federate
// in a process of its own: airtraffic FOM-MODULE NAME for Radar, West, Centre, East, Kite and Heron, with
// TOVU1516_OPTION1=-Dtovu.hub=HOST:PORT naming the hub that they meet at.
#include "Alone.h"
#include "Checks.h"
#include "Exercise.h"

#include <RTI/Exception.h>

#include <clocale>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

namespace {

std::wstring text(char const* argument)
{
   std::u32string const characters = std::filesystem::path(argument).u32string(); // from UTF-8
   return {characters.begin(), characters.end()};
}

} // namespace

int main(int argc, char* argv[])
{
   std::setlocale(LC_ALL, "");
   if (argc != 2 && argc != 3) {
      std::cerr << "usage: airtraffic FOM-MODULE [NAME]\n";
      return 2;
   }
   try {
      std::wstring const fomModule = text(argv[1]);
      if (argc == 3) {
         return airtraffic::runAlone(text(argv[2]), fomModule) ? 0 : 2;
      }
      airtraffic::Exercise exercise;
      exercise.run(fomModule);
      if (!airtraffic::check(exercise)) {
         std::wcout << L"Something went wrong in this airspace." << std::endl;
         return 1;
      }
   } catch (rti1516e::Exception const& exception) {
      std::wcerr << L"The infrastructure says: " << exception.what() << std::endl;
      return 1;
   } catch (std::exception const& exception) {
      std::cerr << exception.what() << std::endl;
      return 1;
   }
   std::wcout << L"Every position, hand-over and clearance arrived where and when it should." << std::endl;
   return 0;
}

// An air-traffic picture: two airlines fly aircraft through three sectors, whose controllers clear them and
// hand them over to each other, and a radar shows what comes within its coverage. Six federates, each on a
// thread of its own, in step with logical time. In the end the run is checked from what each of them has
// seen.
//
// Usage: airtraffic FOM-MODULE, with CLASSPATH naming the jar of the infrastructure's core.
#include "Checks.h"
#include "Exercise.h"

#include <RTI/Exception.h>

#include <clocale>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

int main(int argc, char* argv[])
{
   std::setlocale(LC_ALL, "");
   if (argc != 2) {
      std::cerr << "usage: airtraffic FOM-MODULE\n";
      return 2;
   }
   try {
      std::u32string const fomModule = std::filesystem::path(argv[1]).u32string(); // from UTF-8
      airtraffic::Exercise exercise;
      exercise.run(std::wstring(fomModule.begin(), fomModule.end()));
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

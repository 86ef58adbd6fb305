// Runs the inputs in the files of the given folders, where there is no fuzzer to do so.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int argc, char** argv)
{
   int inputs = 0;
   for (int i = 1; i < argc; ++i) {
      for (auto const& file : std::filesystem::directory_iterator(argv[i])) {
         std::ifstream stream(file.path(), std::ios::binary);
         std::vector<char> const input{std::istreambuf_iterator<char>(stream), {}};
         LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(input.data()), input.size());
         ++inputs;
      }
   }
   std::printf("%d inputs\n", inputs);
   return inputs == 0 ? 1 : 0;
}

// Runs a fuzz target over the files of its corpus, once each, so that every input that ever broke
// it is tested with every compiler and sanitizer.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int main(int argc, char** argv) {
  std::size_t inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (auto const& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
      LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
      ++inputs;
    }
  }
  std::printf("%zu inputs\n", inputs);
  return inputs == 0 ? 1 : 0;  // an empty or misplaced corpus tests nothing
}

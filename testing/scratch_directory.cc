#include "testing/scratch_directory.h"

#include <fdo/text_conversion.h>

#include <atomic>
#include <chrono>
#include <system_error>

namespace fdo {

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() {
  static std::atomic<unsigned> number{0};
  for (;;) {
    // The clock tells processes apart, the number the directories of one.
    auto const ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = fs::temp_directory_path() /
            ("quillon_test_" + std::to_string(ticks) + "_" + std::to_string(number.fetch_add(1)));
    if (fs::create_directory(path_)) return;
  }
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::wstring ScratchDirectory::File(std::string const& name) const {
  std::u8string const text = (path_ / fs::path(std::u8string(name.begin(), name.end()))).u8string();
  return ToWide(std::string(text.begin(), text.end()).c_str());
}

}  // namespace fdo

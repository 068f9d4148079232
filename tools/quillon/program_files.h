// Files of tests that run the program.
#ifndef TOOLS_QUILLON_PROGRAM_FILES_H_
#define TOOLS_QUILLON_PROGRAM_FILES_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "testing/scratch_directory.h"

namespace fdo::tool {

// The path of a file of the test data.
inline std::string Data(std::string const& name) { return std::string(QUILLON_TEST_DATA) + "/" + name; }

// Each test has a directory of its own.
class ProgramFiles : public testing::Test {
 protected:
  // The path of a file in the directory.
  std::string Scratch(std::string const& name) const { return (scratch_.Path() / name).string(); }

  // Gives the path.
  std::string WriteFile(std::string const& name, std::string const& content) const {
    std::ofstream(Scratch(name), std::ios::binary) << content;
    return Scratch(name);
  }

  std::string Content(std::string const& name) const {
    std::ifstream file(Scratch(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  // What is in the directory, hidden files included, in the order of names.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(scratch_.Path()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  ScratchDirectory scratch_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_PROGRAM_FILES_H_

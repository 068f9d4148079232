#include "tools/quillon/output.h"

#include <gtest/gtest.h>

#include "tools/quillon/failure.h"

namespace fdo::tool {
namespace {

TEST(Output, KeepsEveryByteInOrder) {
  std::FILE* const file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  Output output(file);
  std::string expected;
  for (int i = 0; i < 50000; ++i) {
    std::string const line = std::to_string(i) + "\n";
    output.Write(line);
    expected += line;
  }
  output.Flush();
  std::rewind(file);
  std::string written(expected.size() + 1, '\0');
  written.resize(std::fread(written.data(), 1, written.size(), file));
  EXPECT_EQ(written, expected);
  std::fclose(file);
}

// A stream that cannot be written is found at the latest when it is flushed.
TEST(Output, AFailingStreamIsAFailure) {
  std::FILE* const readOnly = std::fopen("/dev/null", "r");
  if (readOnly == nullptr) GTEST_SKIP() << "no device that can only be read";
  Output output(readOnly);
  output.Write("a");
  try {
    output.Flush();
    ADD_FAILURE() << "nothing was thrown";
  } catch (Failure const& failure) {
    EXPECT_EQ(failure.code, ExitCode::kFailed);
    EXPECT_NE(failure.message.find("cannot write to the standard output"), std::string::npos);
  }
  std::fclose(readOnly);
}

}  // namespace
}  // namespace fdo::tool

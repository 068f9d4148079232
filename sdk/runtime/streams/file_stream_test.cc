#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

class FileStream : public testing::Test {
 protected:
  ~FileStream() override { std::filesystem::remove(path_); }

  FdoPtr<FdoIoFileStream> Open(FdoString* modes) {
    return FdoIoFileStream::Create(FdoStringP(Name()), modes);
  }
  char const* Name() const { return name_.c_str(); }

  static void Write(FdoIoStream* stream, std::string text) {
    stream->Write(reinterpret_cast<FdoByte*>(text.data()), text.size());
  }
  static std::string ReadAll(FdoIoStream* stream) {
    std::string text(1000, '\0');
    text.resize(stream->Read(reinterpret_cast<FdoByte*>(text.data()), text.size()));
    return text;
  }

  std::filesystem::path path_ =
      std::filesystem::path(testing::TempDir()) / std::filesystem::path(u8"stra\u00DFe.txt");
  std::string name_ = std::string(testing::TempDir()) +
                      "stra\xC3\x9F"
                      "e.txt";
};

TEST_F(FileStream, ModesSayWhatIsAllowed) {
  Write(Open(L"w"), "line\r\nend");
  struct Case {
    FdoString* modes;
    bool reads;
    bool writes;
    FdoInt64 length;
  };
  Case const cases[] = {
      {L"r", true, false, 9}, {L"rt", true, false, 9}, {L"rb", true, false, 9},
      {L"r+", true, true, 9}, {L"rw", true, true, 9},  {L"a", false, true, 9},
      {L"a+", true, true, 9}, {L"w+", true, true, 0},  {L"w", false, true, 0},
  };
  for (Case const& c : cases) {
    FdoPtr<FdoIoFileStream> stream = Open(c.modes);
    SCOPED_TRACE(FdoStringP(c.modes).operator char const*());
    EXPECT_EQ(stream->CanRead(), c.reads);
    EXPECT_EQ(stream->CanWrite(), c.writes);
    EXPECT_EQ(stream->GetLength(), c.length);
    FdoByte byte = 'x';
    if (!c.reads) MessageThrownBy<FdoException>([&] { stream->Read(&byte, 1); });
    if (!c.writes) MessageThrownBy<FdoException>([&] { stream->Write(&byte, 1); });
  }
}

TEST_F(FileStream, BytesAreNotTranslated) {
  Write(Open(L"wt"),
        "a\r\nb\x1A"
        "c");
  EXPECT_EQ(ReadAll(Open(L"rt")),
            "a\r\nb\x1A"
            "c");
}

TEST_F(FileStream, AFileThatCannotBeOpenedIsNamed) {
  std::wstring const missing = MessageThrownBy<FdoException>([&] { Open(L"r"); });
  EXPECT_NE(missing.find(L"stra\u00DFe.txt"), std::wstring::npos);
  MessageThrownBy<FdoException>([&] { Open(L"x"); });
  MessageThrownBy<FdoException>([&] { Open(nullptr); });
  MessageThrownBy<FdoException>([&] { FdoIoFileStream::Create(nullptr, L"r"); });
}

TEST_F(FileStream, AFileOfTheCallersStaysOpen) {
  std::FILE* file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  FdoPtr<FdoIoFileStream> stream = FdoIoFileStream::Create(file);
  Write(stream, "abc");
  stream = nullptr;
  std::rewind(file);
  EXPECT_EQ(std::fgetc(file), 'a');
  std::fclose(file);
  MessageThrownBy<FdoException>([&] { FdoIoFileStream::Create(static_cast<FILE*>(nullptr)); });
}

}  // namespace
}  // namespace fdo_sdk

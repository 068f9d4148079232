#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

std::string BytesOf(FdoIoStream* stream) {
  stream->Reset();
  std::string bytes(static_cast<std::size_t>(stream->GetLength()), '\0');
  bytes.resize(stream->Read(reinterpret_cast<FdoByte*>(bytes.data()), bytes.size()));
  return bytes;
}

TEST(TextWriter, WritesUtf8WithoutAMark) {
  struct Case {
    FdoString* text;
    char const* bytes;
  };
  Case const cases[] = {
      {L"", ""},
      {nullptr, ""},
      {L"plain", "plain"},
      {L"Stra\u00DFe",
       "Stra\xC3\x9F"
       "e"},
      {L"\u65E5\u672C", "\xE6\x97\xA5\xE6\x9C\xAC"},
      {L"\U0001F30D", "\xF0\x9F\x8C\x8D"},
  };
  for (Case const& c : cases) {
    FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
    FdoPtr<FdoIoTextWriter> writer = FdoIoTextWriter::Create(stream);
    writer->Write(c.text);
    EXPECT_EQ(BytesOf(stream), c.bytes);
  }
}

TEST(TextWriter, WritesFromThePositionOn) {
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  FdoPtr<FdoIoTextWriter> writer = FdoIoTextWriter::Create(stream);
  writer->WriteLine(L"first");
  writer->Write(L"second");
  stream->Reset();
  writer->Write(L"FIRST");
  EXPECT_EQ(BytesOf(stream), "FIRST\nsecond");
}

TEST(TextWriter, LongTextArrivesWhole) {
  std::wstring text;
  std::string expected;
  for (int i = 0; i < 3000; ++i) {
    text += L"\u00E4\u20AC\U0001F600x";
    expected += "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80x";
  }
  ASSERT_GT(expected.size(), 4096u);
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  FdoPtr<FdoIoTextWriter>(FdoIoTextWriter::Create(stream))->Write(text.c_str());
  std::string const bytes = BytesOf(stream);
  EXPECT_EQ(bytes, expected);
  std::wstring back(bytes.size() + 1, L'\0');
  int const units = FdoStringP::Utf8ToUnicode(bytes.c_str(), back.data(), static_cast<int>(back.size()));
  back.resize(static_cast<std::size_t>(units));
  EXPECT_EQ(back, text);
}

TEST(TextWriter, EmptiesTheFileThatItMakes) {
  std::string const name = testing::TempDir() + "text_writer.txt";
  FdoStringP const wideName(name.c_str());
  FdoPtr<FdoIoTextWriter>(FdoIoTextWriter::Create(static_cast<FdoString*>(wideName)))->Write(L"longer text");
  FdoPtr<FdoIoTextWriter>(FdoIoTextWriter::Create(static_cast<FdoString*>(wideName)))->Write(L"short");
  FdoPtr<FdoIoTextReader> reader = FdoIoTextReader::Create(static_cast<FdoString*>(wideName));
  FdoPtr<FdoIoStream> stream = reader->GetStream();
  EXPECT_EQ(BytesOf(stream), "short");
  // A file in use cannot be removed everywhere.
  stream = nullptr;
  reader = nullptr;
  std::filesystem::remove(name);
  MessageThrownBy<FdoException>([&] { FdoIoTextReader::Create(static_cast<FdoString*>(wideName)); });
}

TEST(Text, SharesItsStream) {
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  {
    FdoPtr<FdoIoTextWriter> writer = FdoIoTextWriter::Create(stream);
    FdoPtr<FdoIoTextReader> reader = FdoIoTextReader::Create(stream);
    EXPECT_EQ(stream->GetRefCount(), 3);
    FdoPtr<FdoIoStream> gotten = writer->GetStream();
    EXPECT_EQ(gotten.p, static_cast<FdoIoStream*>(stream.p));
  }
  EXPECT_EQ(stream->GetRefCount(), 1);
  MessageThrownBy<FdoException>([] { FdoIoTextWriter::Create(static_cast<FdoIoStream*>(nullptr)); });
}

}  // namespace
}  // namespace fdo_sdk

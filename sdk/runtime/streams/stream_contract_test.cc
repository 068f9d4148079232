// What every stream that can be read, written and moved keeps to.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

FdoIoStream* MakeMemoryStream() { return FdoIoMemoryStream::Create(); }
// With a step of one byte, every write grows it.
FdoIoStream* MakeTightMemoryStream() { return FdoIoMemoryStream::Create(1); }
FdoIoStream* MakeFileStream() {
  std::string const path = testing::TempDir() + "stream_contract.bin";
  return FdoIoFileStream::Create(FdoStringP(path.c_str()), L"w+");
}

class StreamContract : public testing::TestWithParam<FdoIoStream* (*)()> {
 protected:
  void Write(std::string text) { stream_->Write(reinterpret_cast<FdoByte*>(text.data()), text.size()); }
  std::string Read(FdoSize count) {
    std::string text(count, '\0');
    text.resize(stream_->Read(reinterpret_cast<FdoByte*>(text.data()), count));
    return text;
  }
  std::string All() {
    stream_->Reset();
    return Read(1 << 20);
  }

  FdoPtr<FdoIoStream> stream_ = GetParam()();
};

INSTANTIATE_TEST_SUITE_P(Streams, StreamContract,
                         testing::Values(&MakeMemoryStream, &MakeTightMemoryStream, &MakeFileStream));

TEST_P(StreamContract, StartsEmpty) {
  EXPECT_EQ(stream_->GetLength(), 0);
  EXPECT_EQ(stream_->GetIndex(), 0);
  EXPECT_EQ(Read(1), "");
  EXPECT_TRUE(stream_->CanRead());
  EXPECT_TRUE(stream_->CanWrite());
  EXPECT_TRUE(stream_->HasContext());
}

TEST_P(StreamContract, WritesFromThePositionOn) {
  Write("0123456789");
  EXPECT_EQ(stream_->GetIndex(), 10);
  EXPECT_EQ(Read(1), "");
  stream_->Skip(-6);
  Write("ab");
  EXPECT_EQ(Read(2), "67");
  Write("XYZ");
  EXPECT_EQ(All(), "0123ab67XYZ");
}

TEST_P(StreamContract, SkipStopsAtEitherEnd) {
  Write("0123456789");
  struct Case {
    FdoInt64 offset;
    FdoInt64 index;
  };
  Case const cases[] = {{-3, 7},  {1, 8},           {5, 10}, {-100, 0}, {FdoInt64Max, 10},
                        {-10, 0}, {FdoInt64Min, 0}, {0, 0},  {4, 4}};
  for (Case const& c : cases) {
    stream_->Skip(c.offset);
    EXPECT_EQ(stream_->GetIndex(), c.index) << c.offset;
  }
}

TEST_P(StreamContract, TheLengthOnlyShrinks) {
  Write("0123456789");
  stream_->SetLength(20);
  EXPECT_EQ(stream_->GetLength(), 10);
  stream_->SetLength(4);
  EXPECT_EQ(stream_->GetLength(), 4);
  EXPECT_EQ(stream_->GetIndex(), 4);
  stream_->Skip(-3);
  stream_->SetLength(2);
  EXPECT_EQ(stream_->GetIndex(), 1);
  EXPECT_EQ(All(), "01");
  MessageThrownBy<FdoException>([&] { stream_->SetLength(-1); });
}

TEST_P(StreamContract, CopiesAsMuchAsIsAskedForOrAllThatRemains) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += std::to_string(i) + ",";
  ASSERT_GT(text.size(), 3u * 4096u);
  FdoPtr<FdoIoMemoryStream> source = FdoIoMemoryStream::Create();
  source->Write(reinterpret_cast<FdoByte*>(text.data()), text.size());
  source->Reset();
  stream_->Write(source, 100);
  EXPECT_EQ(source->GetIndex(), 100);
  EXPECT_EQ(stream_->GetLength(), 100);
  stream_->Write(source);
  EXPECT_EQ(All(), text);
  source->Skip(-10);
  MessageThrownBy<FdoException>([&] { stream_->Write(source, 11); });
  MessageThrownBy<FdoException>([&] { stream_->Write(stream_); });
  MessageThrownBy<FdoException>([&] { stream_->Write(static_cast<FdoIoStream*>(nullptr)); });
  EXPECT_EQ(source->GetRefCount(), 1);
}

TEST_P(StreamContract, ReadsBackWhatManySmallWritesMade) {
  std::string expected;
  for (int i = 0; i < 10000; ++i) {
    std::string const piece(static_cast<std::size_t>(i % 7), static_cast<char>('a' + i % 26));
    Write(piece);
    expected += piece;
  }
  EXPECT_EQ(stream_->GetLength(), static_cast<FdoInt64>(expected.size()));
  EXPECT_EQ(All(), expected);
}

}  // namespace
}  // namespace fdo_sdk

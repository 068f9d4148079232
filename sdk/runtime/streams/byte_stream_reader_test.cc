#include <gtest/gtest.h>

#include <string>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

class ByteStreamReader : public testing::Test {
 protected:
  ByteStreamReader() {
    for (int i = 0; i < 20000; ++i) text_.push_back(static_cast<char>('a' + i % 26));
    stream_->Write(reinterpret_cast<FdoByte*>(text_.data()), text_.size());
    reader_->Reset();
  }
  static std::string Text(FdoByteArray* array) {
    return std::string(reinterpret_cast<char const*>(array->GetData()),
                       static_cast<std::size_t>(array->GetCount()));
  }

  std::string text_;
  FdoPtr<FdoIoMemoryStream> stream_ = FdoIoMemoryStream::Create();
  FdoPtr<FdoIoByteStreamReader> reader_ = FdoIoByteStreamReader::Create(stream_);
};

TEST_F(ByteStreamReader, TellsWhatAndHowMuchItReads) {
  EXPECT_EQ(reader_->GetType(), FdoStreamReaderType_Byte);
  EXPECT_EQ(reader_->GetLength(), 20000);
  reader_->Skip(30);
  EXPECT_EQ(reader_->GetIndex(), 30);
  FdoByte bytes[4] = {'?', '?', '?', '?'};
  EXPECT_EQ(reader_->ReadNext(bytes, 1, 2), 2);
  EXPECT_EQ(std::string(bytes, bytes + 4), "?ef?");
  reader_->Reset();
  EXPECT_EQ(reader_->GetIndex(), 0);
}

TEST_F(ByteStreamReader, AnArrayEndsBehindWhatWasRead) {
  FdoByteArray* array = nullptr;
  EXPECT_EQ(reader_->ReadNext(array, 0, 5), 5);
  EXPECT_EQ(Text(array), text_.substr(0, 5));
  EXPECT_EQ(reader_->ReadNext(array, 3), 19995);
  EXPECT_EQ(Text(array), text_.substr(0, 3) + text_.substr(5));
  EXPECT_EQ(reader_->ReadNext(array), 0);
  EXPECT_EQ(array->GetCount(), 0);
  array->Release();
}

TEST_F(ByteStreamReader, AHugeCountTakesNoMoreMemoryThanTheStreamHas) {
  FdoByteArray* array = nullptr;
  EXPECT_EQ(reader_->ReadNext(array, 0, 2147483647), 20000);
  EXPECT_EQ(Text(array), text_);
  array->Release();
}

TEST_F(ByteStreamReader, APartThatDoesNotExistIsRefused) {
  FdoByte byte = 0;
  FdoByteArray* array = nullptr;
  MessageThrownBy<FdoException>([&] { reader_->ReadNext(&byte, -1, 1); });
  MessageThrownBy<FdoException>([&] { reader_->ReadNext(&byte, 0, -2); });
  MessageThrownBy<FdoException>([&] { reader_->ReadNext(static_cast<FdoByte*>(nullptr), 0, 1); });
  MessageThrownBy<FdoException>([&] { reader_->ReadNext(array, -1, 1); });
  EXPECT_EQ(array, nullptr);
  MessageThrownBy<FdoException>([] { FdoIoByteStreamReader::Create(nullptr); });
}

}  // namespace
}  // namespace fdo_sdk

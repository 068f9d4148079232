// FdoIoByteStreamReader reads the bytes of a stream.
#ifndef COMMON_IO_BYTE_STREAM_READER_H_
#define COMMON_IO_BYTE_STREAM_READER_H_

#include "Common/IStreamReaderTmpl.h"
#include "Common/Io/Stream.h"

class FDO_API_COMMON FdoIoByteStreamReader : public FdoIStreamReaderTmpl<FdoByte> {
 public:
  // Gives: one reference. Reads from the stream's position on.
  static FdoIoByteStreamReader* Create(FdoIoStream* stream);

  FdoStreamReaderType GetType() override;
  FdoInt64 GetLength() override;
  void Skip(FdoInt32 const offset) override;
  FdoInt64 GetIndex() override;
  void Reset() override;
  FdoInt32 ReadNext(FdoByte* buffer, FdoInt32 const offset = 0, FdoInt32 const count = -1) override;
  FdoInt32 ReadNext(FdoByteArray*& buffer, FdoInt32 const offset = 0, FdoInt32 const count = -1) override;

 protected:
  explicit FdoIoByteStreamReader(FdoIoStream* stream);
  ~FdoIoByteStreamReader() override;
  void Dispose() override;

 private:
  FdoPtr<FdoIoStream> m_stream;
};

#endif  // COMMON_IO_BYTE_STREAM_READER_H_

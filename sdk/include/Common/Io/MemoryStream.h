// FdoIoMemoryStream keeps its bytes in memory.
#ifndef COMMON_IO_MEMORY_STREAM_H_
#define COMMON_IO_MEMORY_STREAM_H_

#include <vector>

#include "Common/Io/Stream.h"

class FDO_API_COMMON FdoIoMemoryStream : public FdoIoStream {
 public:
  // Gives: one reference, an empty stream that grows by steps of at least bufferSize bytes.
  static FdoIoMemoryStream* Create(FdoSize bufferSize = 4096);

  FdoSize Read(FdoByte* buffer, FdoSize count) override;
  void Write(FdoByte* buffer, FdoSize count) override;
  void Write(FdoIoStream* stream, FdoSize count = 0) override;
  void SetLength(FdoInt64 length) override;
  FdoInt64 GetLength() override;
  FdoInt64 GetIndex() override;
  void Skip(FdoInt64 offset) override;
  void Reset() override;

 protected:
  explicit FdoIoMemoryStream(FdoSize bufferSize);
  ~FdoIoMemoryStream() override;

 private:
  std::vector<FdoByte> m_bytes;
  FdoSize m_index;
  FdoSize m_step;
};

typedef FdoPtr<FdoIoMemoryStream> FdoIoMemoryStreamP;

#endif  // COMMON_IO_MEMORY_STREAM_H_

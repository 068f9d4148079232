// FdoIoFileStream keeps its bytes in a file.
#ifndef COMMON_IO_FILE_STREAM_H_
#define COMMON_IO_FILE_STREAM_H_

#include <cstdio>

#include "Common/Io/Stream.h"
#include "Common/StringP.h"

class FDO_API_COMMON FdoIoFileStream : public FdoIoStream {
 public:
  // Opens the file with the modes of fopen: r, w or a, with + for both ways. Bytes are never
  // translated, so "t" is the same as "b".
  // Gives: one reference. Errors: FdoException*, naming the file.
  static FdoIoFileStream* Create(FdoString* fileName, FdoString* accessModes);

  // Borrowed: the file stays open when the stream ends.
  static FdoIoFileStream* Create(FILE* fp);

  FdoSize Read(FdoByte* buffer, FdoSize count) override;
  void Write(FdoByte* buffer, FdoSize count) override;
  void Write(FdoIoStream* stream, FdoSize count = 0) override;
  void SetLength(FdoInt64 length) override;
  FdoInt64 GetLength() override;
  FdoInt64 GetIndex() override;
  void Skip(FdoInt64 offset) override;
  void Reset() override;
  FdoBoolean CanRead() override;
  FdoBoolean CanWrite() override;
  FdoBoolean HasContext() override;

 protected:
  FdoIoFileStream(FILE* file, bool owned, bool canRead, bool canWrite, FdoString* name);
  ~FdoIoFileStream() override;

 private:
  // The C library wants the position set between reading and writing.
  enum class Last { kNothing, kRead, kWrite };

  void Turn(Last next);
  void MoveTo(FdoInt64 position);
  [[noreturn]] void Fail(FdoString* what) const;

  FILE* m_file;
  bool m_owned;
  bool m_canRead;
  bool m_canWrite;
  Last m_last;
  FdoStringP m_name;
};

typedef FdoPtr<FdoIoFileStream> FdoIoFileStreamP;

#endif  // COMMON_IO_FILE_STREAM_H_

// FdoIoTextWriter writes text to a stream as UTF-8.
#ifndef COMMON_IO_TEXT_WRITER_H_
#define COMMON_IO_TEXT_WRITER_H_

#include "Common/Io/Stream.h"

// No byte-order mark is written. What is no character becomes U+FFFD.
class FDO_API_COMMON FdoIoTextWriter : public FdoDisposable {
 public:
  // Give: one reference. The first makes the file, or empties it; the second writes from the stream's
  // position on.
  static FdoIoTextWriter* Create(FdoString* fileName);
  static FdoIoTextWriter* Create(FdoIoStream* stream);

  // Gives: one reference.
  FdoIoStream* GetStream();

  // Null writes nothing; a line ends with a line feed.
  void Write(FdoString* string);
  void WriteLine(FdoString* string);

 protected:
  explicit FdoIoTextWriter(FdoIoStream* stream);
  ~FdoIoTextWriter() override;

 private:
  FdoPtr<FdoIoStream> m_stream;
};

typedef FdoPtr<FdoIoTextWriter> FdoIoTextWriterP;

#endif  // COMMON_IO_TEXT_WRITER_H_

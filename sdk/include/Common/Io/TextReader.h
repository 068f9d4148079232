// FdoIoTextReader names a stream that holds text, for what reads it: XML and its like.
#ifndef COMMON_IO_TEXT_READER_H_
#define COMMON_IO_TEXT_READER_H_

#include "Common/Io/Stream.h"

class FDO_API_COMMON FdoIoTextReader : public FdoDisposable {
 public:
  // Give: one reference. Errors: FdoException* for a file that cannot be read.
  static FdoIoTextReader* Create(FdoString* fileName);
  static FdoIoTextReader* Create(FdoIoStream* stream);

  // Gives: one reference.
  FdoIoStream* GetStream();

 protected:
  explicit FdoIoTextReader(FdoIoStream* stream);
  ~FdoIoTextReader() override;

 private:
  FdoPtr<FdoIoStream> m_stream;
};

typedef FdoPtr<FdoIoTextReader> FdoIoTextReaderP;

#endif  // COMMON_IO_TEXT_READER_H_

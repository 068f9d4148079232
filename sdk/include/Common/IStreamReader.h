// FdoIStreamReader is what the readers of large values have in common: the unit that they read in.
#ifndef COMMON_I_STREAM_READER_H_
#define COMMON_I_STREAM_READER_H_

#include "Common/IDisposable.h"

enum FdoStreamReaderType { FdoStreamReaderType_Byte, FdoStreamReaderType_Char, FdoStreamReaderType_WChar };

class FDO_API_COMMON FdoIStreamReader : public FdoIDisposable {
 public:
  // Tells which FdoIStreamReaderTmpl the reader is: of FdoByte, char or wchar_t.
  virtual FdoStreamReaderType GetType() = 0;
};

#endif  // COMMON_I_STREAM_READER_H_

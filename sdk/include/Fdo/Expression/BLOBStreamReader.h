// FdoBLOBStreamReader reads a large value byte by byte.
#ifndef FDO_EXPRESSION_BLOB_STREAM_READER_H_
#define FDO_EXPRESSION_BLOB_STREAM_READER_H_

#include "Common/IStreamReaderTmpl.h"
#include "FdoStd.h"

class FDO_API FdoBLOBStreamReader : public FdoIStreamReaderTmpl<FdoByte> {
 public:
  FdoStreamReaderType GetType() override { return FdoStreamReaderType_Byte; }
};

#endif  // FDO_EXPRESSION_BLOB_STREAM_READER_H_

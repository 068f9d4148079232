// FdoIoStream is a sequence of bytes with a position.
#ifndef COMMON_IO_STREAM_H_
#define COMMON_IO_STREAM_H_

#include "Common/Disposable.h"
#include "Common/Exception.h"

// Errors: FdoException* when the stream cannot do what is asked of it.
class FDO_API_COMMON FdoIoStream : public FdoDisposable {
 public:
  // Gives the number of bytes read, 0 at the end. Reading starts where the position stands: after
  // writing, Reset() comes first.
  virtual FdoSize Read(FdoByte* buffer, FdoSize count) = 0;

  // Overwrites from the position on, and extends the stream where it ends.
  virtual void Write(FdoByte* buffer, FdoSize count) = 0;

  // Reads from the other stream, all that remains of it when count is 0.
  // Errors: throws when the other stream ends before count bytes, and when it is this one.
  virtual void Write(FdoIoStream* stream, FdoSize count = 0) = 0;

  // Shortens the stream, its position at most moving to the new end; a larger length changes nothing.
  virtual void SetLength(FdoInt64 length) = 0;

  // Errors: -1 when unknown.
  virtual FdoInt64 GetLength() = 0;

  virtual FdoInt64 GetIndex() = 0;

  // Moves the position, back with a negative offset; it stops at either end.
  virtual void Skip(FdoInt64 offset) = 0;

  // Moves the position to the start.
  virtual void Reset() = 0;

  virtual FdoBoolean CanRead();
  virtual FdoBoolean CanWrite();

  // Whether there is a position to ask for and to move; false for what is read only once, as a pipe.
  virtual FdoBoolean HasContext();

 protected:
  FdoIoStream();
  ~FdoIoStream() override;
};

typedef FdoPtr<FdoIoStream> FdoIoStreamP;

#endif  // COMMON_IO_STREAM_H_

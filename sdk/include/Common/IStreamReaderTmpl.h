// FdoIStreamReaderTmpl reads a large value piece by piece.
#ifndef COMMON_I_STREAM_READER_TMPL_H_
#define COMMON_I_STREAM_READER_TMPL_H_

#include "Common/Array.h"
#include "Common/IStreamReader.h"

// Units: T throughout.
template <class T>
class FdoIStreamReaderTmpl : public FdoIStreamReader {
 public:
  // Errors: -1 when unknown.
  virtual FdoInt64 GetLength() = 0;

  // Moves on, or back with a negative offset; stops at either end.
  virtual void Skip(FdoInt32 const offset) = 0;

  virtual FdoInt64 GetIndex() = 0;

  // Starts over.
  virtual void Reset() = 0;

  // Read up to count units, all that remain when count is -1, to buffer from its position offset on.
  // Give the number of units read, 0 at the end.
  // Requires: the room that buffer points to.
  virtual FdoInt32 ReadNext(T* buffer, FdoInt32 const offset = 0, FdoInt32 const count = -1) = 0;
  // The array, made when it is null, ends behind what was read.
  virtual FdoInt32 ReadNext(FdoArray<T>*& buffer, FdoInt32 const offset = 0, FdoInt32 const count = -1) = 0;
};

#endif  // COMMON_I_STREAM_READER_TMPL_H_

#include "sdk/runtime/streams/stream_copy.h"

#include <algorithm>

namespace fdo_sdk {

void CopyStream(FdoIoStream& to, FdoIoStream* from, FdoSize count) {
  if (from == nullptr) throw FdoException::Create(L"The stream to write is null.");
  if (from == &to) throw FdoException::Create(L"A stream cannot be written to itself.");
  constexpr FdoSize kPiece = 8192;
  FdoByte piece[kPiece];
  bool const all = count == 0;
  while (all || count > 0) {
    FdoSize const wanted = all ? kPiece : std::min(kPiece, count);
    FdoSize const read = from->Read(piece, wanted);
    if (read == 0) break;
    to.Write(piece, read);
    if (!all) count -= read;
  }
  if (!all && count > 0) {
    throw FdoException::Create(L"The stream to write ends before the number of bytes that were asked for.");
  }
}

}  // namespace fdo_sdk

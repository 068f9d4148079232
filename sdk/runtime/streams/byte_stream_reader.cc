#include "Common/Io/ByteStreamReader.h"

#include <algorithm>
#include <limits>

FdoIoByteStreamReader* FdoIoByteStreamReader::Create(FdoIoStream* stream) {
  if (stream == nullptr) throw FdoException::Create(L"The stream to read is null.");
  return new FdoIoByteStreamReader(stream);
}

FdoIoByteStreamReader::FdoIoByteStreamReader(FdoIoStream* stream) : m_stream(FDO_SAFE_ADDREF(stream)) {}

FdoIoByteStreamReader::~FdoIoByteStreamReader() = default;

void FdoIoByteStreamReader::Dispose() { delete this; }

FdoStreamReaderType FdoIoByteStreamReader::GetType() { return FdoStreamReaderType_Byte; }

FdoInt64 FdoIoByteStreamReader::GetLength() { return m_stream->GetLength(); }

void FdoIoByteStreamReader::Skip(FdoInt32 const offset) { m_stream->Skip(offset); }

FdoInt64 FdoIoByteStreamReader::GetIndex() { return m_stream->GetIndex(); }

void FdoIoByteStreamReader::Reset() { m_stream->Reset(); }

FdoInt32 FdoIoByteStreamReader::ReadNext(FdoByte* buffer, FdoInt32 const offset, FdoInt32 const count) {
  if (buffer == nullptr || offset < 0 || count < -1) {
    throw FdoException::Create(L"The part of the buffer to read into does not exist.");
  }
  FdoInt64 const length = m_stream->GetLength();
  if (length < 0 && count == -1) {
    throw FdoException::Create(L"How much remains of the stream is unknown: ask for a number of bytes.");
  }
  FdoInt64 const remaining = length - m_stream->GetIndex();
  FdoInt64 const wanted =
      count == -1 ? std::min<FdoInt64>(std::max<FdoInt64>(remaining, 0), std::numeric_limits<FdoInt32>::max())
                  : count;
  return static_cast<FdoInt32>(m_stream->Read(buffer + offset, static_cast<FdoSize>(wanted)));
}

FdoInt32 FdoIoByteStreamReader::ReadNext(FdoByteArray*& buffer, FdoInt32 const offset, FdoInt32 const count) {
  if (offset < 0 || count < -1) {
    throw FdoException::Create(L"The part of the buffer to read into does not exist.");
  }
  if (buffer == nullptr) buffer = FdoByteArray::Create();
  if (buffer->GetCount() < offset) buffer = FdoByteArray::SetSize(buffer, offset);
  constexpr FdoInt32 kPiece = 8192;
  FdoInt32 total = 0;
  // Piece by piece: the count asked for is no reason to reserve that much before the stream has it.
  while (count == -1 || total < count) {
    FdoInt32 const start = offset + total;
    FdoInt32 const room = std::numeric_limits<FdoInt32>::max() - start;
    FdoInt32 const wanted = std::min({kPiece, room, count == -1 ? kPiece : count - total});
    if (wanted == 0) break;
    buffer = FdoByteArray::SetSize(buffer, start + wanted);
    FdoInt32 const read = ReadNext(buffer->GetData(), start, wanted);
    total += read;
    if (read == 0) break;
  }
  buffer = FdoByteArray::SetSize(buffer, offset + total);
  return total;
}

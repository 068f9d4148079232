#include "Common/Io/MemoryStream.h"

#include <algorithm>
#include <cstring>

#include "sdk/runtime/streams/stream_copy.h"

FdoIoMemoryStream* FdoIoMemoryStream::Create(FdoSize bufferSize) { return new FdoIoMemoryStream(bufferSize); }

FdoIoMemoryStream::FdoIoMemoryStream(FdoSize bufferSize)
    : m_index(0), m_step(std::max<FdoSize>(bufferSize, 1)) {}

FdoIoMemoryStream::~FdoIoMemoryStream() = default;

FdoSize FdoIoMemoryStream::Read(FdoByte* buffer, FdoSize count) {
  FdoSize const read = std::min(count, m_bytes.size() - m_index);
  if (read > 0) std::memcpy(buffer, m_bytes.data() + m_index, read);
  m_index += read;
  return read;
}

void FdoIoMemoryStream::Write(FdoByte* buffer, FdoSize count) {
  if (count == 0) return;
  if (count > m_bytes.max_size() - m_index) {
    throw FdoException::Create(L"The stream would grow beyond what memory can hold.");
  }
  FdoSize const end = m_index + count;
  if (end > m_bytes.capacity()) {
    // At least by half, so that many small writes stay linear.
    m_bytes.reserve(std::max({end, m_bytes.size() + m_step, m_bytes.size() + m_bytes.size() / 2}));
  }
  if (end > m_bytes.size()) m_bytes.resize(end);
  std::memcpy(m_bytes.data() + m_index, buffer, count);
  m_index = end;
}

void FdoIoMemoryStream::Write(FdoIoStream* stream, FdoSize count) {
  fdo_sdk::CopyStream(*this, stream, count);
}

void FdoIoMemoryStream::SetLength(FdoInt64 length) {
  if (length < 0) throw FdoException::Create(L"The length of a stream cannot be negative.");
  if (length >= GetLength()) return;
  m_bytes.resize(static_cast<FdoSize>(length));
  m_index = std::min(m_index, m_bytes.size());
}

FdoInt64 FdoIoMemoryStream::GetLength() { return static_cast<FdoInt64>(m_bytes.size()); }

FdoInt64 FdoIoMemoryStream::GetIndex() { return static_cast<FdoInt64>(m_index); }

void FdoIoMemoryStream::Skip(FdoInt64 offset) {
  FdoInt64 const back = GetIndex();
  FdoInt64 const ahead = GetLength() - back;
  m_index = static_cast<FdoSize>(back + std::clamp(offset, -back, ahead));
}

void FdoIoMemoryStream::Reset() { m_index = 0; }

#include "Common/Io/FileStream.h"

#include <algorithm>
#include <string>

#include "port/file.h"
#include "sdk/runtime/core/utf8.h"
#include "sdk/runtime/streams/stream_copy.h"

FdoIoFileStream* FdoIoFileStream::Create(FdoString* fileName, FdoString* accessModes) {
  std::wstring const name = fileName == nullptr ? L"" : fileName;
  std::wstring const modes = accessModes == nullptr ? L"" : accessModes;
  bool const reads = modes.find(L'r') != std::wstring::npos;
  bool const writes = modes.find(L'w') != std::wstring::npos;
  bool const appends = modes.find(L'a') != std::wstring::npos;
  bool const both = modes.find(L'+') != std::wstring::npos || (reads && (writes || appends));
  if (!reads && !writes && !appends) {
    std::wstring const message = L"\"" + modes + L"\" is no way to open the file \"" + name + L"\".";
    throw FdoException::Create(message.c_str());
  }
  std::string mode = reads ? "r" : appends ? "a" : "w";
  mode += both ? "+b" : "b";
  FILE* file = fdo::port::OpenFile(fdo_sdk::Utf8FromWide(name), mode.c_str());
  if (file == nullptr) {
    std::wstring const message = L"The file \"" + name + L"\" cannot be opened.";
    throw FdoException::Create(message.c_str());
  }
  return new FdoIoFileStream(file, true, reads || both, !reads || both, name.c_str());
}

FdoIoFileStream* FdoIoFileStream::Create(FILE* fp) {
  if (fp == nullptr) throw FdoException::Create(L"The file of a stream is null.");
  return new FdoIoFileStream(fp, false, true, true, L"");
}

FdoIoFileStream::FdoIoFileStream(FILE* file, bool owned, bool canRead, bool canWrite, FdoString* name)
    : m_file(file),
      m_owned(owned),
      m_canRead(canRead),
      m_canWrite(canWrite),
      m_last(Last::kNothing),
      m_name(name) {}

FdoIoFileStream::~FdoIoFileStream() {
  if (m_owned) {
    std::fclose(m_file);
  } else {
    std::fflush(m_file);
  }
}

FdoSize FdoIoFileStream::Read(FdoByte* buffer, FdoSize count) {
  if (!m_canRead) Fail(L"is not open for reading");
  Turn(Last::kRead);
  FdoSize const read = std::fread(buffer, 1, count, m_file);
  if (read < count && std::ferror(m_file) != 0) Fail(L"cannot be read");
  return read;
}

void FdoIoFileStream::Write(FdoByte* buffer, FdoSize count) {
  if (!m_canWrite) Fail(L"is not open for writing");
  Turn(Last::kWrite);
  if (std::fwrite(buffer, 1, count, m_file) != count) Fail(L"cannot be written");
}

void FdoIoFileStream::Write(FdoIoStream* stream, FdoSize count) { fdo_sdk::CopyStream(*this, stream, count); }

void FdoIoFileStream::SetLength(FdoInt64 length) {
  if (length < 0) throw FdoException::Create(L"The length of a stream cannot be negative.");
  if (length >= GetLength()) return;
  FdoInt64 const index = GetIndex();
  if (!fdo::port::CutFile(m_file, length)) Fail(L"cannot be cut");
  MoveTo(std::min(index, length));
}

FdoInt64 FdoIoFileStream::GetLength() {
  FdoInt64 const index = GetIndex();
  if (index < 0 || std::fseek(m_file, 0, SEEK_END) != 0) return -1;
  FdoInt64 const length = GetIndex();
  MoveTo(index);
  return length;
}

FdoInt64 FdoIoFileStream::GetIndex() { return fdo::port::FilePosition(m_file); }

void FdoIoFileStream::Skip(FdoInt64 offset) {
  FdoInt64 const index = GetIndex();
  FdoInt64 const length = GetLength();
  if (length < 0) Fail(L"has no position to move");
  MoveTo(index + std::clamp(offset, -index, std::max<FdoInt64>(length - index, 0)));
}

void FdoIoFileStream::Reset() { MoveTo(0); }

FdoBoolean FdoIoFileStream::CanRead() { return m_canRead; }

FdoBoolean FdoIoFileStream::CanWrite() { return m_canWrite; }

FdoBoolean FdoIoFileStream::HasContext() { return GetIndex() >= 0; }

void FdoIoFileStream::Turn(Last next) {
  // Without a position there is nothing to turn: what is written and what is read are two things.
  if (m_last != Last::kNothing && m_last != next && GetIndex() >= 0) MoveTo(GetIndex());
  m_last = next;
}

void FdoIoFileStream::MoveTo(FdoInt64 position) {
  if (!fdo::port::SetFilePosition(m_file, position)) Fail(L"has no position to move");
  m_last = Last::kNothing;
}

void FdoIoFileStream::Fail(FdoString* what) const {
  std::wstring const message = L"The file \"" + std::wstring(m_name) + L"\" " + what + L".";
  throw FdoException::Create(message.c_str());
}

#include <string>

#include "Common/Io/FileStream.h"
#include "Common/Io/TextReader.h"
#include "Common/Io/TextWriter.h"
#include "sdk/runtime/core/utf8.h"

namespace {

FdoIoStream* Shared(FdoIoStream* stream) {
  if (stream == nullptr) throw FdoException::Create(L"The stream of a text is null.");
  return FDO_SAFE_ADDREF(stream);
}

}  // namespace

FdoIoTextWriter* FdoIoTextWriter::Create(FdoString* fileName) {
  FdoPtr<FdoIoStream> stream = FdoIoFileStream::Create(fileName, L"w");
  return new FdoIoTextWriter(stream);
}

FdoIoTextWriter* FdoIoTextWriter::Create(FdoIoStream* stream) {
  FdoPtr<FdoIoStream> shared = Shared(stream);
  return new FdoIoTextWriter(shared);
}

FdoIoTextWriter::FdoIoTextWriter(FdoIoStream* stream) : m_stream(FDO_SAFE_ADDREF(stream)) {}

FdoIoTextWriter::~FdoIoTextWriter() = default;

FdoIoStream* FdoIoTextWriter::GetStream() { return FDO_SAFE_ADDREF(m_stream.p); }

void FdoIoTextWriter::Write(FdoString* string) {
  if (string == nullptr) return;
  std::string utf8 = fdo_sdk::Utf8FromWide(string);
  m_stream->Write(reinterpret_cast<FdoByte*>(utf8.data()), utf8.size());
}

void FdoIoTextWriter::WriteLine(FdoString* string) {
  Write(string);
  Write(L"\n");
}

FdoIoTextReader* FdoIoTextReader::Create(FdoString* fileName) {
  FdoPtr<FdoIoStream> stream = FdoIoFileStream::Create(fileName, L"r");
  return new FdoIoTextReader(stream);
}

FdoIoTextReader* FdoIoTextReader::Create(FdoIoStream* stream) {
  FdoPtr<FdoIoStream> shared = Shared(stream);
  return new FdoIoTextReader(shared);
}

FdoIoTextReader::FdoIoTextReader(FdoIoStream* stream) : m_stream(FDO_SAFE_ADDREF(stream)) {}

FdoIoTextReader::~FdoIoTextReader() = default;

FdoIoStream* FdoIoTextReader::GetStream() { return FDO_SAFE_ADDREF(m_stream.p); }

#include "Common/Exception.h"

#include "sdk/runtime/core/wide_text.h"

FdoException::FdoException() : FdoException(nullptr) {}

FdoException::FdoException(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode)
    : m_message(fdo_sdk::CopyText(message)),
      m_cause(FDO_SAFE_ADDREF(cause)),
      m_nativeErrorCode(nativeErrorCode) {}

FdoException::~FdoException() {
  delete[] m_message;
  FDO_SAFE_RELEASE(m_cause);
}

void FdoException::Dispose() { delete this; }

FdoException* FdoException::Create() { return new FdoException(); }

FdoException* FdoException::Create(FdoString* message) { return new FdoException(message); }

FdoException* FdoException::Create(FdoString* message, FdoInt64 nativeErrorCode) {
  return new FdoException(message, nullptr, nativeErrorCode);
}

FdoException* FdoException::Create(FdoString* message, FdoException* cause) {
  return new FdoException(message, cause);
}

FdoException* FdoException::Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode) {
  return new FdoException(message, cause, nativeErrorCode);
}

FdoString* FdoException::GetExceptionMessage() {
  for (FdoException* at = this; at != nullptr; at = at->m_cause) {
    if (at->m_message != nullptr) return at->m_message;
  }
  return nullptr;
}

FdoException* FdoException::GetCause() { return FDO_SAFE_ADDREF(m_cause); }

FdoException* FdoException::GetRootCause() {
  FdoException* root = m_cause;
  while (root != nullptr && root->m_cause != nullptr) root = root->m_cause;
  return FDO_SAFE_ADDREF(root);
}

void FdoException::SetCause(FdoException* cause) {
  FdoException* old = m_cause;
  m_cause = FDO_SAFE_ADDREF(cause);
  FDO_SAFE_RELEASE(old);
}

FdoString* FdoException::ToString() { return GetExceptionMessage(); }

FdoInt64 FdoException::GetNativeErrorCode() { return m_nativeErrorCode; }

// FdoException is what the interface throws: as a pointer, which the catcher releases.
#ifndef COMMON_EXCEPTION_H_
#define COMMON_EXCEPTION_H_

#include "Common/IDisposable.h"
#include "Common/Ptr.h"
#include "FdoMessage.h"

// A message, the error that led to it, and an error code of the data store beneath.
class FDO_API_COMMON FdoException : public FdoIDisposable {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoException* Create();
  static FdoException* Create(FdoString* message);
  static FdoException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoException* Create(FdoString* message, FdoException* cause);
  static FdoException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

  // Without a message of its own an exception shows its cause's.
  // Borrowed: while the exception lives. Errors: null when there is no message at all.
  virtual FdoString* GetExceptionMessage();

  // Give: one reference, or null. The root is the last exception of the chain of causes.
  virtual FdoException* GetCause();
  virtual FdoException* GetRootCause();

  // Requires: this exception is not among the causes of cause.
  virtual void SetCause(FdoException* cause);

  virtual FdoString* ToString();
  virtual FdoInt64 GetNativeErrorCode();

 protected:
  FdoException();
  FdoException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoException() override;
  void Dispose() override;

  wchar_t* m_message;
  FdoException* m_cause;
  FdoInt64 m_nativeErrorCode;

 private:
  FdoException(FdoException const&) = delete;
  FdoException& operator=(FdoException const&) = delete;
};

typedef FdoPtr<FdoException> FdoExceptionP;

#endif  // COMMON_EXCEPTION_H_

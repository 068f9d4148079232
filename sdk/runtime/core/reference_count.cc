#include "Common/Disposable.h"
#include "sdk/runtime/core/counting.h"

using FdoInternal::Counting;

std::atomic<bool> fdo_sdk::globalLocking{false};

FdoInt32 FdoInternal::ChangeReferenceCount(FdoInt32& count, FdoInt32 change, bool locked) {
  return fdo_sdk::ChangeCount(count, change, locked);
}

void FdoIDisposable::EnableGlobalThreadLocking(bool enable) { fdo_sdk::globalLocking.store(enable); }

bool FdoIDisposable::GetGlobalThreadLockingFlag() { return fdo_sdk::globalLocking.load(); }

FdoIDisposable::FdoIDisposable() : m_objectThreadLockingEnabled(false), m_refCount(1) {}

FdoIDisposable::~FdoIDisposable() = default;

FdoInt32 FdoIDisposable::AddRef() { return Counting::AddRef(*this); }

FdoInt32 FdoIDisposable::Release() { return Counting::Release(*this); }

FdoInt32 FdoIDisposable::GetRefCount() { return Counting::Change(*this, 0); }

void FdoIDisposable::EnableObjectThreadLocking(bool enable) { m_objectThreadLockingEnabled = enable; }

FdoDisposable::FdoDisposable() = default;

FdoDisposable::~FdoDisposable() = default;

void FdoDisposable::Dispose() { delete this; }

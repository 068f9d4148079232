#include "sdk/providers/sqlite/write_batch.h"

namespace fdo_sqlite {

void WriteBatch::Join(void const* owner) {
  if (owner_ != nullptr) {
    if (owner_ == owner && database_.InTransaction()) return;
    Settle();
  }
  // One that a program began.
  if (database_.InTransaction()) return;
  database_.BeginWriting();
  owner_ = owner;
}

void WriteBatch::Settle() {
  if (owner_ == nullptr) return;
  // Some failures end the transaction; whoever met one has thrown it.
  if (database_.InTransaction()) database_.Commit();
  owner_ = nullptr;
}

void WriteBatch::Leave(void const* owner) noexcept {
  if (owner_ != owner) return;
  try {
    Settle();
  } catch (FdoException* unsettled) {
    FdoPtr<FdoException> failure(unsettled);
    // The address may become that of another owner, who must not take this batch for its own.
    owner_ = this;
  }
}

void WriteBatch::Abandon() noexcept {
  if (owner_ != nullptr) database_.Rollback();
  owner_ = nullptr;
}

}  // namespace fdo_sqlite

#include "sdk/providers/sqlite/write_batch.h"

#include <new>

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
  if (database_.InTransaction()) {
    database_.Commit();
    untold_ = nullptr;
  }
  owner_ = nullptr;
  // Otherwise a failure has undone it. Whoever met that has thrown it, but for an owner that was leaving.
  if (untold_ != nullptr) throw untold_.Detach();
}

void WriteBatch::Leave(void const* owner) noexcept {
  if (owner_ != owner) return;
  try {
    Settle();
  } catch (FdoException* raised) {
    untold_ = raised;
    // The address may become that of another owner, who must not take this batch for its own.
    owner_ = this;
  } catch (std::bad_alloc const&) {
    // Not settled yet: whoever comes next does it.
    owner_ = this;
  }
}

}  // namespace fdo_sqlite

// The transaction that the inserts through one held command share.
#ifndef SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_
#define SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_

#include "sdk/providers/sqlite/database.h"

namespace fdo_sqlite {

// At most one transaction is open in a database: none, a batch of one owner, or one that a program began. In
// the latter the owners simply write.
// A batch that cannot be committed stays open, and the next Settle tries again and says why it cannot.
class WriteBatch {
 public:
  // Borrowed: the database, which outlives this.
  explicit WriteBatch(Database& database) : database_(database) {}

  // To be called before each row that an owner writes: opens a transaction when there is none. The batch of
  // another owner is settled first.
  void Join(void const* owner);

  // Ends the batch, so that it is on disk and other connections see it. Nothing happens without one.
  // Errors: FdoCommandException*; the batch stays open.
  void Settle();

  // The owner's end. What cannot be settled now is left to the next Settle.
  void Leave(void const* owner) noexcept;

  // Whether a batch is open.
  bool IsOpen() const { return owner_ != nullptr; }

  // Gives up the batch and all that was written in it.
  void Abandon() noexcept;

 private:
  Database& database_;
  void const* owner_ = nullptr;  // of the open batch; never looked into
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_

// The transaction that the inserts through one held command share.
#ifndef SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_
#define SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_

#include "sdk/providers/sqlite/database.h"

namespace fdo_sqlite {

// At most one transaction is open in a database: none, a batch of one owner, or one that a program began. In
// the latter the owners simply write.
class WriteBatch {
 public:
  // Borrowed: the database, which outlives this.
  explicit WriteBatch(Database& database) : database_(database) {}

  // To be called before each row that an owner writes: opens a transaction when there is none. The batch of
  // another owner is settled first.
  void Join(void const* owner);

  // Ends the batch, so that it is on disk and other connections see it. Nothing happens without one.
  // Errors: FdoCommandException*; the batch stays open, unless the failure has undone it. A batch that was
  // undone when its owner left is one, too.
  void Settle();

  // The owner's end. What cannot be settled now is left to the next Settle: to try again, or to tell.
  void Leave(void const* owner) noexcept;

 private:
  Database& database_;
  FdoPtr<FdoException> untold_;  // why a batch whose owner has left could not be settled
  void const* owner_ = nullptr;  // of the open batch; never looked into
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_WRITE_BATCH_H_

#ifndef FDO_SCROLLER_H_
#define FDO_SCROLLER_H_

#include <fdo/database.h>
#include <fdo/export.h>
#include <fdo/integer.h>

#include <cstdint>
#include <deque>
#include <memory>

namespace fdo {

// A Scroller reads the rows of a query by position. It reads the query to its end for the rows' identities,
// 8 bytes each, and reads a row again whenever it is asked for, through a table of its own on a second,
// pooled connection; the table that it was made from is free for other queries.
//
// A row shows the record as the second connection sees it now, at the position it had in the query. Rows of
// a table without an identity column cannot be told apart: each position gives what Query(0) gives.
// Copies share the second connection and its table, which the last of them gives back.
// Threads: the one that made it, the destructor included.
class QUILLON_EXPORT Scroller {
 public:
  // Reads the rest of the table's running query.
  // Requires: table belongs to db and has a query running.
  // Errors: when no second connection can be made, or it does not have the table, every At gives null.
  Scroller(Database* db, Table* table);
  Scroller(Scroller const&) = default;
  Scroller& operator=(Scroller const&) = default;
  virtual ~Scroller() = default;

  // The number of rows.
  virtual std::uint64_t Count() { return ids_.size(); }
  // The row at that position, counted from 0; null when it has been deleted since, and for a position that
  // is Count() or more.
  // Borrowed: until the next call of At of this Scroller or of a copy.
  virtual Row const* At(std::uint64_t i);

 private:
  class Reader;

  std::shared_ptr<Reader> reader_;
  // Blocks, so that growing neither copies nor leaves more than one of them unused.
  std::deque<__int64> ids_;
};

}  // namespace fdo

#endif  // FDO_SCROLLER_H_

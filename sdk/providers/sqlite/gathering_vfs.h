// Files for SQLite that take writes one page at a time and hand them on many at a time.
#ifndef SDK_PROVIDERS_SQLITE_GATHERING_VFS_H_
#define SDK_PROVIDERS_SQLITE_GATHERING_VFS_H_

#include <sqlite3.h>

#include <string>

namespace fdo_sqlite {

// SQLite writes a database page by page, in their order. A batch of inserts makes hundreds of pages, one
// behind the other, and a call to the system for each takes longer than what it writes. This is the
// platform's own file system, but that a database file keeps writes which continue one another and passes
// them on as one.
//
// What is kept is read and measured as if it were in the file already. It is passed on before SQLite waits
// for the disk, asks anything else of the file or lets others at it, and only while nobody else can read the
// file, which is the case from SQLite's first write to its last. So a transaction is undone by its journal as
// ever, whether its pages were lost in the system's memory or in that of this process. A write that fails is
// told as the failure of a later call, all of them before the transaction ends, and is tried again.
class GatheringVfs {
 public:
  // Known to SQLite by Name() from here to the end, on top of what is SQLite's default now.
  // Requires: that stays registered as long; no database that was opened by it is open at the end.
  GatheringVfs();
  ~GatheringVfs();
  GatheringVfs(GatheringVfs const&) = delete;
  GatheringVfs& operator=(GatheringVfs const&) = delete;

  // Null when SQLite has no file system, or no memory to be set up. Borrowed: while this lives.
  char const* Name() const { return vfs_.zName; }

 private:
  std::string const name_;
  sqlite3_vfs vfs_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_GATHERING_VFS_H_

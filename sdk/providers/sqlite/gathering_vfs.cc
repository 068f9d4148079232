#include "sdk/providers/sqlite/gathering_vfs.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace fdo_sqlite {
namespace {

// SQLite's own file systems take no more than 128 KiB at a time, less one byte. More would gain little.
constexpr int kMostGathered = 120 * 1024;

// The file that SQLite sees, with the platform's own behind it. SQLite makes room for both at a multiple
// of 8.
struct alignas(std::int64_t) GatheringFile {
  sqlite3_file base;
  bool isExclusive;      // nobody else has any lock
  int size;              // of what is kept
  sqlite3_int64 offset;  // in the file, of what is kept
  unsigned char* bytes;  // room for kMostGathered; null until there is something to keep

  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  sqlite3_io_methods const& Methods() { return *Real()->pMethods; }
  sqlite3_int64 End() const { return offset + size; }
};

GatheringFile& Of(sqlite3_file* file) { return *reinterpret_cast<GatheringFile*>(file); }

// Errors: what the write gives; everything is still kept.
int PassOn(GatheringFile& file) {
  if (file.size == 0) return SQLITE_OK;
  int const code = file.Methods().xWrite(file.Real(), file.bytes, file.size, file.offset);
  if (code == SQLITE_OK) file.size = 0;
  return code;
}

int Close(sqlite3_file* handle) {
  GatheringFile& file = Of(handle);
  sqlite3_free(file.bytes);
  return file.Methods().xClose(file.Real());
}

int Read(sqlite3_file* handle, void* into, int size, sqlite3_int64 offset) {
  GatheringFile& file = Of(handle);
  if (file.size > 0 && offset < file.End() && file.offset < offset + size) {
    if (file.offset <= offset && offset + size <= file.End()) {
      std::memcpy(into, file.bytes + (offset - file.offset), static_cast<std::size_t>(size));
      return SQLITE_OK;
    }
    int const code = PassOn(file);
    if (code != SQLITE_OK) return code;
  }
  return file.Methods().xRead(file.Real(), into, size, offset);
}

int Write(sqlite3_file* handle, void const* from, int size, sqlite3_int64 offset) {
  GatheringFile& file = Of(handle);
  bool const continues = file.size > 0 && offset == file.End() && size <= kMostGathered - file.size;
  if (!continues) {
    int const code = PassOn(file);
    if (code != SQLITE_OK) return code;
    if (file.isExclusive && file.bytes == nullptr) {
      file.bytes = static_cast<unsigned char*>(sqlite3_malloc(kMostGathered));
    }
    if (!file.isExclusive || file.bytes == nullptr || size > kMostGathered) {
      return file.Methods().xWrite(file.Real(), from, size, offset);
    }
    file.offset = offset;
  }
  std::memcpy(file.bytes + file.size, from, static_cast<std::size_t>(size));
  file.size += size;
  return SQLITE_OK;
}

int Truncate(sqlite3_file* handle, sqlite3_int64 size) {
  GatheringFile& file = Of(handle);
  // What is cut off need not be written before; on a full disk it could not be.
  if (file.End() > size) file.size = static_cast<int>(std::max<sqlite3_int64>(size - file.offset, 0));
  int const code = PassOn(file);
  return code != SQLITE_OK ? code : file.Methods().xTruncate(file.Real(), size);
}

int Sync(sqlite3_file* handle, int flags) {
  GatheringFile& file = Of(handle);
  int const code = PassOn(file);
  return code != SQLITE_OK ? code : file.Methods().xSync(file.Real(), flags);
}

int FileSize(sqlite3_file* handle, sqlite3_int64* size) {
  GatheringFile& file = Of(handle);
  int const code = file.Methods().xFileSize(file.Real(), size);
  if (code == SQLITE_OK && file.size > 0) *size = std::max(*size, file.End());
  return code;
}

int Lock(sqlite3_file* handle, int lock) {
  GatheringFile& file = Of(handle);
  int const code = file.Methods().xLock(file.Real(), lock);
  if (code == SQLITE_OK && lock == SQLITE_LOCK_EXCLUSIVE) file.isExclusive = true;
  return code;
}

int Unlock(sqlite3_file* handle, int lock) {
  GatheringFile& file = Of(handle);
  // Something is left only of a transaction that failed, and could not be undone. Its journal is there, and
  // whoever reads the file next undoes it.
  int const code = PassOn(file);
  file.size = 0;
  file.isExclusive = false;
  int const unlocked = file.Methods().xUnlock(file.Real(), lock);
  return code != SQLITE_OK ? code : unlocked;
}

// SQLITE_FCNTL_SYNC is one of them, which also comes where SQLite is told not to wait for the disk.
int FileControl(sqlite3_file* handle, int operation, void* argument) {
  GatheringFile& file = Of(handle);
  int const code = PassOn(file);
  return code != SQLITE_OK ? code : file.Methods().xFileControl(file.Real(), operation, argument);
}

// Null is no failure: SQLite then reads.
int Fetch(sqlite3_file* handle, sqlite3_int64 offset, int size, void** bytes) {
  GatheringFile& file = Of(handle);
  *bytes = nullptr;
  return file.size > 0 ? SQLITE_OK : file.Methods().xFetch(file.Real(), offset, size, bytes);
}

// The same call of the real file.
template <auto method>
struct Forward;
template <class... Arguments, int (*sqlite3_io_methods::*method)(sqlite3_file*, Arguments...)>
struct Forward<method> {
  static int Call(sqlite3_file* handle, Arguments... arguments) {
    GatheringFile& file = Of(handle);
    return (file.Methods().*method)(file.Real(), arguments...);
  }
};
// Of the real file system.
template <class Result, class... Arguments, Result (*sqlite3_vfs::*method)(sqlite3_vfs*, Arguments...)>
struct Forward<method> {
  static Result Call(sqlite3_vfs* vfs, Arguments... arguments) {
    auto* const real = static_cast<sqlite3_vfs*>(vfs->pAppData);
    return (real->*method)(real, arguments...);
  }
};
void BarrierOf(sqlite3_file* handle) {
  GatheringFile& file = Of(handle);
  file.Methods().xShmBarrier(file.Real());
}

// Each version has what those before have; SQLite does not ask for more than its version says.
constexpr sqlite3_io_methods MethodsOfVersion(int version) {
  return {version,
          &Close,
          &Read,
          &Write,
          &Truncate,
          &Sync,
          &FileSize,
          &Lock,
          &Unlock,
          &Forward<&sqlite3_io_methods::xCheckReservedLock>::Call,
          &FileControl,
          &Forward<&sqlite3_io_methods::xSectorSize>::Call,
          &Forward<&sqlite3_io_methods::xDeviceCharacteristics>::Call,
          &Forward<&sqlite3_io_methods::xShmMap>::Call,
          &Forward<&sqlite3_io_methods::xShmLock>::Call,
          &BarrierOf,
          &Forward<&sqlite3_io_methods::xShmUnmap>::Call,
          &Fetch,
          &Forward<&sqlite3_io_methods::xUnfetch>::Call};
}
constexpr sqlite3_io_methods kVersions[] = {MethodsOfVersion(1), MethodsOfVersion(2), MethodsOfVersion(3)};
constexpr int kLatest = static_cast<int>(std::size(kVersions));

int Open(sqlite3_vfs* vfs, char const* name, sqlite3_file* handle, int flags, int* givenFlags) {
  auto* const real = static_cast<sqlite3_vfs*>(vfs->pAppData);
  // Journals are written once, and waited for.
  if ((flags & SQLITE_OPEN_MAIN_DB) == 0) return real->xOpen(real, name, handle, flags, givenFlags);
  GatheringFile& file = Of(handle);
  file = GatheringFile();
  file.Real()->pMethods = nullptr;
  int const code = real->xOpen(real, name, file.Real(), flags, givenFlags);
  // A file that has methods is closed by SQLite, even one that failed to open.
  if (file.Real()->pMethods != nullptr) {
    file.base.pMethods = &kVersions[std::min(file.Methods().iVersion, kLatest) - 1];
  }
  return code;
}

template <auto method>
void Route(sqlite3_vfs& vfs, sqlite3_vfs const& real) {
  vfs.*method = real.*method == nullptr ? nullptr : &Forward<method>::Call;
}

}  // namespace

GatheringVfs::GatheringVfs()
    : name_("gathering " + std::to_string(reinterpret_cast<std::uintptr_t>(this))), vfs_() {
  // Sets SQLite up, too.
  sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
  if (real == nullptr) return;
  vfs_.iVersion = 1;
  vfs_.szOsFile = static_cast<int>(sizeof(GatheringFile)) + real->szOsFile;
  vfs_.mxPathname = real->mxPathname;
  vfs_.pAppData = real;
  vfs_.xOpen = &Open;
  Route<&sqlite3_vfs::xDelete>(vfs_, *real);
  Route<&sqlite3_vfs::xAccess>(vfs_, *real);
  Route<&sqlite3_vfs::xFullPathname>(vfs_, *real);
  Route<&sqlite3_vfs::xDlOpen>(vfs_, *real);
  Route<&sqlite3_vfs::xDlError>(vfs_, *real);
  Route<&sqlite3_vfs::xDlSym>(vfs_, *real);
  Route<&sqlite3_vfs::xDlClose>(vfs_, *real);
  Route<&sqlite3_vfs::xRandomness>(vfs_, *real);
  Route<&sqlite3_vfs::xSleep>(vfs_, *real);
  Route<&sqlite3_vfs::xCurrentTime>(vfs_, *real);
  Route<&sqlite3_vfs::xGetLastError>(vfs_, *real);
  vfs_.zName = name_.c_str();
  if (sqlite3_vfs_register(&vfs_, /*makeDflt=*/0) != SQLITE_OK) vfs_.zName = nullptr;
}

GatheringVfs::~GatheringVfs() {
  if (vfs_.zName != nullptr) sqlite3_vfs_unregister(&vfs_);
}

}  // namespace fdo_sqlite

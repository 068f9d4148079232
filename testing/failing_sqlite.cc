#include "testing/failing_sqlite.h"

#include <sqlite3.h>

namespace fdo {
namespace {

constexpr char kName[] = "failing";

struct Plan {
  SqliteFault fault = SqliteFault::kDisk;
  int remaining = 0;  // calls until the failing one; 0 for never
  bool lasting = false;
  bool failed = false;
};
Plan plan;

// Counts a call that can meet the fault; true when this is the one, or one after it, that fails.
bool MeetsFault(SqliteFault fault) {
  if (plan.fault != fault || plan.remaining == 0) return plan.failed && plan.lasting && plan.fault == fault;
  if (--plan.remaining > 0) return false;
  plan.failed = true;
  return true;
}

bool DiskFails() { return MeetsFault(SqliteFault::kDisk); }

bool IsReadOnly() { return plan.fault == SqliteFault::kReadOnly && plan.failed; }

// A file is this, with the platform's own behind it.
struct File {
  sqlite3_file base;
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* RealOf(sqlite3_file* file) { return reinterpret_cast<File*>(file)->Real(); }
sqlite3_io_methods const& MethodsOf(sqlite3_file* file) { return *RealOf(file)->pMethods; }

int Close(sqlite3_file* file) { return MethodsOf(file).xClose(RealOf(file)); }

int Read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
  if (DiskFails()) return SQLITE_IOERR_READ;
  return MethodsOf(file).xRead(RealOf(file), bytes, size, offset);
}

// The code of a change that fails, or SQLITE_OK.
int FaultOfChange(int diskCode) {
  if (DiskFails()) return diskCode;
  if (MeetsFault(SqliteFault::kFullDisk)) return SQLITE_FULL;
  return IsReadOnly() ? SQLITE_READONLY : SQLITE_OK;
}

int Write(sqlite3_file* file, void const* bytes, int size, sqlite3_int64 offset) {
  int const fault = FaultOfChange(SQLITE_IOERR_WRITE);
  return fault != SQLITE_OK ? fault : MethodsOf(file).xWrite(RealOf(file), bytes, size, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  int const fault = FaultOfChange(SQLITE_IOERR_TRUNCATE);
  return fault != SQLITE_OK ? fault : MethodsOf(file).xTruncate(RealOf(file), size);
}

// Does nothing else: no test of a call that fails needs the power to fail, too, and waiting for a disk would
// be most of its time.
int Sync(sqlite3_file*, int) { return DiskFails() ? SQLITE_IOERR_FSYNC : SQLITE_OK; }

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
  if (DiskFails()) return SQLITE_IOERR_FSTAT;
  return MethodsOf(file).xFileSize(RealOf(file), size);
}

int Lock(sqlite3_file* file, int lock) {
  if (DiskFails()) return SQLITE_IOERR_LOCK;
  return MethodsOf(file).xLock(RealOf(file), lock);
}

int Unlock(sqlite3_file* file, int lock) { return MethodsOf(file).xUnlock(RealOf(file), lock); }

int CheckReservedLock(sqlite3_file* file, int* result) {
  if (DiskFails()) return SQLITE_IOERR_CHECKRESERVEDLOCK;
  return MethodsOf(file).xCheckReservedLock(RealOf(file), result);
}

int FileControl(sqlite3_file* file, int operation, void* argument) {
  return MethodsOf(file).xFileControl(RealOf(file), operation, argument);
}

int SectorSize(sqlite3_file* file) { return MethodsOf(file).xSectorSize(RealOf(file)); }

int DeviceCharacteristics(sqlite3_file* file) { return MethodsOf(file).xDeviceCharacteristics(RealOf(file)); }

sqlite3_io_methods const kMethods = {
    1, &Close, &Read, &Write, &Truncate, &Sync, &FileSize, &Lock, &Unlock, &CheckReservedLock, &FileControl,
    &SectorSize, &DeviceCharacteristics,
    // Without shared memory, which version 1 has not, there is no write-ahead log.
    nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

sqlite3_vfs* RealVfs(sqlite3_vfs* vfs) { return static_cast<sqlite3_vfs*>(vfs->pAppData); }

int Open(sqlite3_vfs* vfs, char const* name, sqlite3_file* file, int flags, int* givenFlags) {
  file->pMethods = nullptr;
  if (DiskFails()) return SQLITE_CANTOPEN;
  bool const denied = MeetsFault(SqliteFault::kReadOnly) || IsReadOnly();
  if (denied && (flags & SQLITE_OPEN_MAIN_DB) == 0) return SQLITE_CANTOPEN;
  if (denied) flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
  int const code = RealVfs(vfs)->xOpen(RealVfs(vfs), name, RealOf(file), flags, givenFlags);
  if (code == SQLITE_OK) file->pMethods = &kMethods;
  return code;
}

int Delete(sqlite3_vfs* vfs, char const* name, int) {
  if (DiskFails()) return SQLITE_IOERR_DELETE;
  return RealVfs(vfs)->xDelete(RealVfs(vfs), name, 0);
}

int Access(sqlite3_vfs* vfs, char const* name, int flags, int* result) {
  if (DiskFails()) return SQLITE_IOERR_ACCESS;
  return RealVfs(vfs)->xAccess(RealVfs(vfs), name, flags, result);
}

int FullPathname(sqlite3_vfs* vfs, char const* name, int size, char* path) {
  return RealVfs(vfs)->xFullPathname(RealVfs(vfs), name, size, path);
}

sqlite3_vfs failingVfs;
sqlite3_mem_methods realMemory;

void* Allocate(int size) { return MeetsFault(SqliteFault::kMemory) ? nullptr : realMemory.xMalloc(size); }

void* Reallocate(void* memory, int size) {
  return MeetsFault(SqliteFault::kMemory) ? nullptr : realMemory.xRealloc(memory, size);
}

}  // namespace

bool FailingSqlite::PrepareMemory() {
  static bool prepared = false;
  if (prepared) return true;
  // This fills in the platform's own only after SQLite has been set up once.
  if (sqlite3_initialize() != SQLITE_OK || sqlite3_shutdown() != SQLITE_OK) return false;
  if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &realMemory) != SQLITE_OK) return false;
  sqlite3_mem_methods methods = realMemory;
  methods.xMalloc = &Allocate;
  methods.xRealloc = &Reallocate;
  // A pool from which many small pieces are taken without asking would hide failures.
  sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
  prepared = sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK;
  return prepared;
}

FailingSqlite::FailingSqlite() {
  plan = Plan();
  sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
  failingVfs = *real;
  failingVfs.szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
  failingVfs.pNext = nullptr;
  failingVfs.zName = kName;
  failingVfs.pAppData = real;
  failingVfs.xOpen = &Open;
  failingVfs.xDelete = &Delete;
  failingVfs.xAccess = &Access;
  failingVfs.xFullPathname = &FullPathname;
  sqlite3_vfs_register(&failingVfs, 1);
}

FailingSqlite::~FailingSqlite() {
  plan = Plan();
  sqlite3_vfs_unregister(&failingVfs);
}

void FailingSqlite::FailAt(SqliteFault fault, int n, bool lasting) { plan = {fault, n, lasting, false}; }

void FailingSqlite::Heal() { plan = {SqliteFault::kDisk, 0, false, plan.failed}; }

bool FailingSqlite::HasFailed() const { return plan.failed; }

}  // namespace fdo

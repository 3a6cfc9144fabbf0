#include "support/FaultVfs.h"

#include <cerrno>
#include <mutex>
#include <new>
#include <optional>
#include <sqlite3.h>
#include <string_view>

namespace orrelo::test {
namespace {

using Call = FaultVfs::Call;

struct State {
  std::mutex mutex;
  std::optional<FaultVfs::Order> order;
  int seen = 0;
  bool hasFailed = false;
};

State& state() {
  static auto* const state = new State;
  return *state;
}

sqlite3_vfs* real = nullptr;

/// The result ordered for this call, or SQLITE_OK.
int fault(Call call, const char* file) {
  auto& shared = state();
  const std::lock_guard lock(shared.mutex);
  if (!shared.order || shared.order->call != call) return SQLITE_OK;
  if (std::string_view(file == nullptr ? "" : file).find(shared.order->file) == std::string_view::npos) {
    return SQLITE_OK;
  }
  ++shared.seen;
  const bool isDue =
      shared.order->lasts ? shared.seen >= shared.order->nth : shared.seen == shared.order->nth;
  if (!isDue) return SQLITE_OK;
  shared.hasFailed = true;
  errno = shared.order->systemError;
  return shared.order->code;
}

struct FaultFile {
  sqlite3_file base;
  const char* name;

  sqlite3_file* inner() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  const sqlite3_io_methods& methods() { return *inner()->pMethods; }
  static FaultFile& of(sqlite3_file* file) { return *reinterpret_cast<FaultFile*>(file); }
};

/// Forwards a call to the real file.
template <auto Method, class... Arguments>
int pass(sqlite3_file* file, Arguments... arguments) {
  auto& self = FaultFile::of(file);
  return (self.methods().*Method)(self.inner(), arguments...);
}

template <auto Method, Call call, class... Arguments>
int passOrFail(sqlite3_file* file, Arguments... arguments) {
  if (const int code = fault(call, FaultFile::of(file).name); code != SQLITE_OK) return code;
  return pass<Method>(file, arguments...);
}

/// Does not sync: no test loses power.
int sync(sqlite3_file* file, int) {
  return fault(Call::sync, FaultFile::of(file).name);
}

int lockShared(sqlite3_file* file, int offset, int count, int flags) {
  // Unlocking never fails.
  if ((flags & SQLITE_SHM_UNLOCK) != 0)
    return pass<&sqlite3_io_methods::xShmLock>(file, offset, count, flags);
  return passOrFail<&sqlite3_io_methods::xShmLock, Call::lock>(file, offset, count, flags);
}

void barrier(sqlite3_file* file) {
  auto& self = FaultFile::of(file);
  self.methods().xShmBarrier(self.inner());
}

using Methods = sqlite3_io_methods;

const sqlite3_io_methods methods{2,  // without memory mapping
                                 pass<&Methods::xClose>,
                                 passOrFail<&Methods::xRead, Call::read, void*, int, sqlite3_int64>,
                                 passOrFail<&Methods::xWrite, Call::write, const void*, int, sqlite3_int64>,
                                 passOrFail<&Methods::xTruncate, Call::truncate, sqlite3_int64>,
                                 sync,
                                 pass<&Methods::xFileSize, sqlite3_int64*>,
                                 passOrFail<&Methods::xLock, Call::lock, int>,
                                 pass<&Methods::xUnlock, int>,
                                 pass<&Methods::xCheckReservedLock, int*>,
                                 pass<&Methods::xFileControl, int, void*>,
                                 pass<&Methods::xSectorSize>,
                                 pass<&Methods::xDeviceCharacteristics>,
                                 pass<&Methods::xShmMap, int, int, int, void volatile**>,
                                 lockShared,
                                 barrier,
                                 pass<&Methods::xShmUnmap, int>,
                                 nullptr,
                                 nullptr};

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* flagsOut) {
  auto* const self = new (file) FaultFile{{nullptr}, name};
  if (const int code = fault(Call::open, name); code != SQLITE_OK) return code;
  const int code = real->xOpen(real, name, self->inner(), flags, flagsOut);
  if (self->inner()->pMethods != nullptr) self->base.pMethods = &methods;
  return code;
}

/// Returns at once, so that a busy connection retries as often as usual without the delay.
int sleepNot(sqlite3_vfs*, int microseconds) {
  return microseconds;
}

}  // namespace

FaultVfs::FaultVfs() {
  real = sqlite3_vfs_find(nullptr);
  auto* const vfs = new sqlite3_vfs(*real);
  vfs->zName = "fault";
  vfs->szOsFile = static_cast<int>(sizeof(FaultFile)) + real->szOsFile;
  vfs->xOpen = open;
  vfs->xSleep = sleepNot;
  sqlite3_vfs_register(vfs, 1);
}

FaultVfs& FaultVfs::instance() {
  static auto* const vfs = new FaultVfs;
  return *vfs;
}

void FaultVfs::order(Order order) {
  auto& shared = state();
  const std::lock_guard lock(shared.mutex);
  shared.order = std::move(order);
  shared.seen = 0;
  shared.hasFailed = false;
}

bool FaultVfs::hasFailed() const {
  const std::lock_guard lock(state().mutex);
  return state().hasFailed;
}

void FaultVfs::clear() {
  const std::lock_guard lock(state().mutex);
  state().order.reset();
}

}  // namespace orrelo::test

// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include "platform/module.h"

namespace {

constexpr unsigned int kBlocksPerChunk = 64;

// The string pools leave room for the string header and the terminator. The largest pool has no
// such allowance, deliberately: only scratch buffers use it.
constexpr unsigned int kStringAllowance = 16;

// A pool that goes when the module is unloaded. At the end of the process it stays: threads that
// are still running, and static objects of hosts, may hold strings.
//
// Pools lie in cache lines of their own, the lock of each in the line of its list of free blocks.
class alignas(64) ModulePool {
 public:
  explicit ModulePool(unsigned int blockSize) : pool_(blockSize, kBlocksPerChunk) {}
  ModulePool(const ModulePool&) = delete;
  ModulePool& operator=(const ModulePool&) = delete;
  ~ModulePool() {
    if (quarnfc::platform::ModuleIsUnloading()) pool_.~CQNFixedAlloc();
  }

  CQNFixedAlloc* Get() { return &pool_; }

 private:
  union {
    CQNFixedAlloc pool_;
  };
};

// Each is built when the module is loaded or, where the static initialiser of another file needs it
// earlier, at that first use.
template <unsigned int kBlockSize>
CQNFixedAlloc* Pool() {
  static ModulePool pool(kBlockSize);
  return pool.Get();
}

[[maybe_unused]] CQNFixedAlloc* const g_loaded[] = {
    _TempData64B(), _TempData128B(), _TempData256B(), _TempData512B(), _TempData1024B()};

}  // namespace

CQNFixedAlloc* _TempData64B() { return Pool<64 + kStringAllowance>(); }
CQNFixedAlloc* _TempData128B() { return Pool<128 + kStringAllowance>(); }
CQNFixedAlloc* _TempData256B() { return Pool<256 + kStringAllowance>(); }
CQNFixedAlloc* _TempData512B() { return Pool<512 + kStringAllowance>(); }
CQNFixedAlloc* _TempData1024B() { return Pool<1024>(); }

CQNFixedAlloc* _TempDataStr64() { return _TempData64B(); }
CQNFixedAlloc* _TempDataStr128() { return _TempData128B(); }
CQNFixedAlloc* _TempDataStr256() { return _TempData256B(); }
CQNFixedAlloc* _TempDataStr512() { return _TempData512B(); }

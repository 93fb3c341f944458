#include <quarnfc/fixed_alloc.h>

namespace {

constexpr unsigned int kBlocksPerChunk = 64;

// The string pools leave room for the string header and the terminator. The largest pool has no
// such allowance, deliberately: only scratch buffers use it.
constexpr unsigned int kStringAllowance = 16;

// A pool of the module. Each is built when the module is loaded or, where the static initialiser of
// another file needs it earlier, at that first use.
template <unsigned int kBlockSize>
CQNFixedAlloc* Pool() {
  static CQNFixedAlloc pool(kBlockSize, kBlocksPerChunk);
  return &pool;
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

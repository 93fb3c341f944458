#include <quarnfc/fixed_alloc.h>

namespace {

constexpr unsigned int kBlocksPerChunk = 64;

// The string pools leave room for the string header and the terminator. The largest pool has no
// such allowance, deliberately: only scratch buffers use it.
constexpr unsigned int kStringAllowance = 16;

CQNFixedAlloc g_pool_64(64 + kStringAllowance, kBlocksPerChunk);
CQNFixedAlloc g_pool_128(128 + kStringAllowance, kBlocksPerChunk);
CQNFixedAlloc g_pool_256(256 + kStringAllowance, kBlocksPerChunk);
CQNFixedAlloc g_pool_512(512 + kStringAllowance, kBlocksPerChunk);
CQNFixedAlloc g_pool_1024(1024, kBlocksPerChunk);

}  // namespace

CQNFixedAlloc* _TempData64B() { return &g_pool_64; }
CQNFixedAlloc* _TempData128B() { return &g_pool_128; }
CQNFixedAlloc* _TempData256B() { return &g_pool_256; }
CQNFixedAlloc* _TempData512B() { return &g_pool_512; }
CQNFixedAlloc* _TempData1024B() { return &g_pool_1024; }

CQNFixedAlloc* _TempDataStr64() { return &g_pool_64; }
CQNFixedAlloc* _TempDataStr128() { return &g_pool_128; }
CQNFixedAlloc* _TempDataStr256() { return &g_pool_256; }
CQNFixedAlloc* _TempDataStr512() { return &g_pool_512; }

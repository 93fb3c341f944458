// SPDX-License-Identifier: MIT
// Block pools beside the C heap and beside a free list under a std::mutex, on one thread and on two
// that contend.
#include <quarnfc/fixed_alloc.h>

#include <cstdlib>
#include <mutex>
#include <vector>

#include "row.h"

namespace {

// The plainest pool that several threads may share.
class MutexPool {
 public:
  explicit MutexPool(std::size_t size) : size_(size) {}

  void* Alloc() {
    const std::lock_guard guard(mutex_);
    if (free_.empty()) return std::malloc(size_);
    void* block = free_.back();
    free_.pop_back();
    return block;
  }

  void Free(void* block) {
    const std::lock_guard guard(mutex_);
    free_.push_back(block);
  }

 private:
  std::size_t size_;
  std::mutex mutex_;
  std::vector<void*> free_;
};

void Exchange(benchmark::State& state) {
  CQNFixedAlloc* pool = _TempData64B();
  for (auto _ : state) {
    void* block = pool->Alloc();
    bench::Keep(block);
    pool->Free(block);
  }
}

void ExchangeWithMutex(benchmark::State& state) {
  static MutexPool pool(80);
  for (auto _ : state) {
    void* block = pool.Alloc();
    bench::Keep(block);
    pool.Free(block);
  }
}

void ExchangeWithMalloc(benchmark::State& state) {
  for (auto _ : state) {
    void* block = std::malloc(80);
    bench::Keep(block);
    std::free(block);
  }
}

void Add(const char* who, void (*run)(benchmark::State&)) {
  const std::string work = "pool alloc + free|";
  benchmark::RegisterBenchmark((work + "one thread|" + who).c_str(), run);
  benchmark::RegisterBenchmark((work + "two threads|" + who).c_str(), run)->Threads(2);
}

}  // namespace

int main(int argc, char** argv) {
  Add(bench::kOurs, Exchange);
  Add("free list under std::mutex", ExchangeWithMutex);
  Add("malloc", ExchangeWithMalloc);
  return bench::Run(argc, argv);
}

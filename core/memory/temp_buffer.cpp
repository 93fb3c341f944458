// SPDX-License-Identifier: MIT
#include <quarnfc/fixed_alloc.h>

#include "core/memory/memory.h"

namespace {

CQNFixedAlloc* PoolFor(int size) {
  if (size < 64) return _TempData64B();
  if (size < 128) return _TempData128B();
  if (size < 256) return _TempData256B();
  if (size < 512) return _TempData512B();
  if (size < 1024) return _TempData1024B();
  return nullptr;
}

}  // namespace

CQNTempBuffer::CQNTempBuffer(int size) : pool_(PoolFor(size)), size_(size < 0 ? 0 : size) {}

CQNTempBuffer::~CQNTempBuffer() {
  if (pool_ != nullptr) {
    pool_->Free(data_);
  } else {
    quarnfc::FreeBuffer(data_);
  }
}

void* CQNTempBuffer::GetData() {
  if (data_ == nullptr) {
    data_ =
        pool_ != nullptr ? pool_->Alloc() : quarnfc::AllocBuffer(static_cast<std::size_t>(size_));
  }
  return data_;
}

int CQNTempBuffer::GetSize() const { return size_; }

// SPDX-License-Identifier: MIT
// A text of a document: a string value, a key or a message. One pointer wide; the block behind it
// holds a count of references, the length and the terminated bytes. Copies share the block, on
// whatever thread; it never changes while it is shared. The empty text has no block.
#ifndef QUARNFC_JSON_SHARED_TEXT_H_
#define QUARNFC_JSON_SHARED_TEXT_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <string_view>
#include <utility>

#include "core/memory/memory.h"

namespace quarnfc::json {

class SharedText {
 public:
  SharedText() = default;

  explicit SharedText(std::string_view text) : SharedText(text.size()) {
    if (block_ != nullptr) std::memcpy(Writable(), text.data(), text.size());
  }

  // A terminated text of this length, to be filled through Writable at once. Throws std::bad_alloc.
  explicit SharedText(std::size_t length) {
    if (length == 0) return;
    if (length > kMaxLength) throw std::bad_alloc();
    block_ = new (AllocNode(BlockSize(length))) Block{1, static_cast<std::uint32_t>(length)};
    Writable()[length] = '\0';
  }

  SharedText(const SharedText& other) noexcept : block_(other.block_) {
    if (block_ != nullptr) block_->references.fetch_add(1, std::memory_order_relaxed);
  }

  SharedText(SharedText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}

  SharedText& operator=(SharedText other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }

  ~SharedText() {
    if (block_ != nullptr && IsLastReference()) FreeNode(block_, BlockSize(block_->length));
  }

  // A copy of a text that no other thread can know yet: without an interlocked operation.
  SharedText CopyUnpublished() const {
    SharedText copy;
    copy.block_ = block_;
    if (block_ != nullptr) AddUnpublished(1);
    return copy;
  }

  // In the same way takes this reference away, which is not the last one.
  void DropUnpublished() {
    if (block_ != nullptr) AddUnpublished(-1);
    block_ = nullptr;
  }

  // Whether both share one block.
  bool IsShareOf(const SharedText& other) const { return block_ == other.block_; }

  char* Writable() { return reinterpret_cast<char*>(block_ + 1); }

  const char* Characters() const {
    return block_ != nullptr ? reinterpret_cast<const char*>(block_ + 1) : "";
  }

  std::size_t Length() const { return block_ != nullptr ? block_->length : 0; }
  std::string_view View() const { return {Characters(), Length()}; }

 private:
  struct Block {
    std::atomic<std::uint32_t> references;
    std::uint32_t length;
  };

  // As long as a CQNString may be.
  static constexpr std::size_t kMaxLength =
      static_cast<std::size_t>(std::numeric_limits<int>::max()) - 16;

  static constexpr std::size_t BlockSize(std::size_t length) { return sizeof(Block) + length + 1; }

  void AddUnpublished(std::int32_t count) const {
    const std::uint32_t old = block_->references.load(std::memory_order_relaxed);
    block_->references.store(old + static_cast<std::uint32_t>(count), std::memory_order_relaxed);
  }

  // Takes this reference away. Without others no interlocked operation is needed.
  bool IsLastReference() const {
    return block_->references.load(std::memory_order_acquire) == 1 ||
           block_->references.fetch_sub(1, std::memory_order_acq_rel) == 1;
  }

  Block* block_ = nullptr;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_SHARED_TEXT_H_

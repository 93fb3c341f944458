// SPDX-License-Identifier: MIT
// The keys of an object in order, one pointer wide. Copies share one list until one of them
// changes, on whatever thread: objects of one kind, which a document has over and over, keep their
// keys once. It has the members of std::vector that are used here, under the same names.
#ifndef QUARNFC_JSON_KEY_LIST_H_
#define QUARNFC_JSON_KEY_LIST_H_

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "core/memory/memory.h"
#include "json/shared_text.h"

namespace quarnfc::json {

class KeyList {
 public:
  KeyList() = default;

  // Moves the keys out of their places. Throws std::bad_alloc; then they are as they were.
  KeyList(SharedText* first, SharedText* last) {
    if (first == last) return;
    head_ = NewHead(static_cast<std::size_t>(last - first));
    std::uninitialized_move(first, last, Items(head_));
    head_->size = static_cast<std::uint32_t>(last - first);
  }

  KeyList(const KeyList& other) noexcept : head_(other.head_) {
    if (head_ != nullptr) head_->references.fetch_add(1, std::memory_order_relaxed);
  }

  KeyList(KeyList&& other) noexcept : head_(std::exchange(other.head_, nullptr)) {}

  KeyList& operator=(KeyList other) noexcept {
    swap(other);
    return *this;
  }

  ~KeyList() {
    if (head_ != nullptr && IsLastReference()) Free();
  }

  std::size_t size() const { return head_ != nullptr ? head_->size : 0; }
  bool empty() const { return size() == 0; }
  const SharedText* begin() const { return head_ != nullptr ? Items(head_) : nullptr; }
  const SharedText* end() const { return begin() + size(); }
  const SharedText& operator[](std::size_t index) const { return begin()[index]; }

  // Whoever changes a list first gets one of its own. Throws std::bad_alloc; then nothing changed.
  void push_back(SharedText key) {
    if (!IsOwnWithRoomFor(size() + 1)) MoveTo(std::max<std::size_t>(4, size() * 2));
    new (Items(head_) + head_->size) SharedText(std::move(key));
    ++head_->size;
  }

  void erase(std::size_t position) {
    if (!IsOwnWithRoomFor(size())) MoveTo(size());
    SharedText* const erased = Items(head_) + position;
    std::rotate(erased, erased + 1, Items(head_) + size());
    pop_back();
  }

  // Only after push_back: the list is its own then.
  void pop_back() { Items(head_)[--head_->size].~SharedText(); }

  void swap(KeyList& other) noexcept { std::swap(head_, other.head_); }

 private:
  struct alignas(SharedText) Head {
    std::atomic<std::uint32_t> references;
    std::uint32_t size;
    std::uint32_t capacity;
  };

  static constexpr std::size_t BytesFor(std::size_t capacity) {
    return sizeof(Head) + capacity * sizeof(SharedText);
  }

  static SharedText* Items(Head* head) { return reinterpret_cast<SharedText*>(head + 1); }

  static Head* NewHead(std::size_t capacity) {
    if (capacity > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    return new (AllocNode(BytesFor(capacity))) Head{1, 0, static_cast<std::uint32_t>(capacity)};
  }

  bool IsOwn() const { return head_->references.load(std::memory_order_acquire) == 1; }

  bool IsOwnWithRoomFor(std::size_t count) const {
    return head_ != nullptr && count <= head_->capacity && IsOwn();
  }

  // Takes this reference away. Without others no interlocked operation is needed.
  bool IsLastReference() const {
    return IsOwn() || head_->references.fetch_sub(1, std::memory_order_acq_rel) == 1;
  }

  // A list of this one's own, with the same keys.
  void MoveTo(std::size_t capacity) {
    KeyList own;
    own.head_ = NewHead(capacity);
    if (head_ != nullptr && IsOwn()) {
      std::uninitialized_move(Items(head_), Items(head_) + size(), Items(own.head_));
    } else {
      std::uninitialized_copy(begin(), end(), Items(own.head_));
    }
    own.head_->size = static_cast<std::uint32_t>(size());
    swap(own);
  }

  void Free() noexcept {
    std::destroy(begin(), end());
    FreeNode(head_, BytesFor(head_->capacity));
  }

  Head* head_ = nullptr;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_KEY_LIST_H_

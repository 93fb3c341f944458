// SPDX-License-Identifier: MIT
// A growable list that is one pointer wide: most lists of a document are short, and every value has
// one. It has the members of std::vector that are used here, under the same names. Items move from
// place to place without throwing.
#ifndef QUARNFC_JSON_COMPACT_LIST_H_
#define QUARNFC_JSON_COMPACT_LIST_H_

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "core/memory/memory.h"

namespace quarnfc::json {

template <class Item>
class CompactList {
  static_assert(std::is_nothrow_move_constructible_v<Item>);

 public:
  using iterator = Item*;
  using const_iterator = const Item*;

  CompactList() = default;
  CompactList(CompactList&& other) noexcept : head_(std::exchange(other.head_, nullptr)) {}
  CompactList& operator=(CompactList&& other) noexcept {
    swap(other);
    return *this;
  }
  ~CompactList() { Free(); }

  // A list of count items without content, such as null pointers. Throws std::bad_alloc.
  explicit CompactList(std::size_t count) {
    if (count == 0) return;
    head_ = NewHead(count);
    std::uninitialized_value_construct_n(Items(), count);
    head_->size = head_->capacity;
  }

  // A list of exactly these items. Copying one does not throw.
  template <class Iterator>
  CompactList(Iterator first, Iterator last) {
    if (first == last) return;
    head_ = NewHead(static_cast<std::size_t>(std::distance(first, last)));
    std::uninitialized_copy(first, last, Items());
    head_->size = head_->capacity;
  }

  std::size_t size() const { return head_ != nullptr ? head_->size : 0; }
  bool empty() const { return size() == 0; }
  Item* begin() { return Items(); }
  Item* end() { return Items() + size(); }
  const Item* begin() const { return Items(); }
  const Item* end() const { return Items() + size(); }
  Item& operator[](std::size_t index) { return Items()[index]; }
  const Item& operator[](std::size_t index) const { return Items()[index]; }
  Item& front() { return *begin(); }
  Item& back() { return end()[-1]; }
  const Item& front() const { return *begin(); }
  const Item& back() const { return end()[-1]; }

  // Room for this many items in all. Throws std::bad_alloc.
  void reserve(std::size_t capacity) {
    if (capacity > Capacity()) MoveTo(capacity);
  }

  void push_back(Item item) {
    if (size() == Capacity()) [[unlikely]]
      MoveTo(std::max<std::size_t>(4, size() * 2));
    new (end()) Item(std::move(item));
    ++head_->size;
  }

  void pop_back() {
    end()[-1].~Item();
    --head_->size;
  }

  void insert(const Item* position, Item item) {
    const std::ptrdiff_t index = position - begin();
    push_back(std::move(item));
    std::rotate(begin() + index, end() - 1, end());
  }

  template <class Iterator>
  void insert(const Item* position, Iterator first, Iterator last) {
    const std::ptrdiff_t index = position - begin();
    const std::size_t old_size = size();
    reserve(old_size + static_cast<std::size_t>(std::distance(first, last)));
    for (; first != last; ++first) push_back(*first);
    std::rotate(begin() + index, begin() + old_size, end());
  }

  void erase(const Item* position) {
    std::move(begin() + (position - begin()) + 1, end(), begin() + (position - begin()));
    pop_back();
  }

  // Drops the items from this position on.
  void shrink(Item* position) {
    if (position == end()) return;
    std::destroy(position, end());
    head_->size = static_cast<std::uint32_t>(position - begin());
  }

  void clear() { shrink(begin()); }

  void swap(CompactList& other) noexcept { std::swap(head_, other.head_); }

 private:
  struct Head {
    std::size_t Bytes() const { return BytesFor(capacity); }

    std::uint32_t size;
    std::uint32_t capacity;
  };

  static constexpr std::size_t BytesFor(std::size_t capacity) {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): items may be pointers
    return sizeof(Head) + capacity * sizeof(Item);
  }

  static Head* NewHead(std::size_t capacity) {
    if (capacity > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    return new (AllocNode(BytesFor(capacity))) Head{0, static_cast<std::uint32_t>(capacity)};
  }

  Item* Items() const { return head_ != nullptr ? reinterpret_cast<Item*>(head_ + 1) : nullptr; }
  std::size_t Capacity() const { return head_ != nullptr ? head_->capacity : 0; }

  void MoveTo(std::size_t capacity) {
    Head* head = NewHead(capacity);
    head->size = static_cast<std::uint32_t>(size());
    std::uninitialized_move(begin(), end(), reinterpret_cast<Item*>(head + 1));
    Free();
    head_ = head;
  }

  void Free() noexcept {
    if (head_ == nullptr) return;
    std::destroy(begin(), end());
    FreeNode(head_, head_->Bytes());
  }

  Head* head_ = nullptr;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_COMPACT_LIST_H_

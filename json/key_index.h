// SPDX-License-Identifier: MIT
// Finding keys in objects with many members: a hash table from keys to the first member that has
// the key. It is made at the first search, so that objects which are only read, copied and written
// do without; searches on several threads may make it at once, and one of the tables stays.
//
// Method: open addressing with linear probing over positions, at most half full.
#ifndef QUARNFC_JSON_KEY_INDEX_H_
#define QUARNFC_JSON_KEY_INDEX_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "json/key_list.h"

namespace quarnfc::json {

// The part of a key that comparisons look at: an incomplete double-byte character at the end does
// not count.
std::string_view ComparedPart(std::string_view key);

// Whether two keys are equal by their characters.
inline bool IsSameKey(std::string_view left, std::string_view right) {
  const auto is_plain = [](std::string_view key) {
    return key.empty() || static_cast<unsigned char>(key.back()) < 0x80;
  };
  if (left == right) return true;
  if (is_plain(left) && is_plain(right)) return false;
  return ComparedPart(left) == ComparedPart(right);
}

class KeyIndex {
 public:
  using Keys = KeyList;

  KeyIndex() = default;
  KeyIndex(const KeyIndex&) = delete;
  KeyIndex& operator=(const KeyIndex&) = delete;
  ~KeyIndex() { Drop(); }

  // The position of the first key equal to this one, or -1. Does not throw: without memory for the
  // table the keys are searched one after the other.
  int Find(const Keys& keys, std::string_view key) const;

  // The last of the keys has been added.
  void Added(const Keys& keys);

  // The key at this position is about to be erased.
  void Erasing(std::size_t position);

  // The keys are replaced as a whole.
  void Drop() noexcept {
    if (table_.load(std::memory_order_relaxed) != nullptr) DropTable();
  }

 private:
  class Table;

  const Table* TryMakeTable(const Keys& keys) const;
  void DropTable() noexcept;

  mutable std::atomic<Table*> table_ = nullptr;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_KEY_INDEX_H_

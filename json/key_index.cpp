// SPDX-License-Identifier: MIT
#include "json/key_index.h"

#include <algorithm>
#include <memory>
#include <new>

#include "platform/code_page.h"

namespace quarnfc::json {
namespace {

// Up to this many keys are searched one after the other: as fast, and without a table.
constexpr std::size_t kFewKeys = 16;

// Mixes eight bytes at a time by multiplication with odd constants, as wyhash does. Where the
// module lies in memory makes it another function in every process.
std::uint64_t Hash(std::string_view text) {
  static const char anchor = 0;
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(&anchor) ^ text.size();
  for (; !text.empty(); text.remove_prefix(std::min<std::size_t>(8, text.size()))) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), std::min<std::size_t>(8, text.size()));
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;
    hash ^= hash >> 29;
  }
  hash *= 0xD6E8FEB86659FD93;
  return hash ^ hash >> 32;
}

// Keys that both end in an ASCII byte, as most do, are equal or not by their bytes: the last one
// tells most of them apart.
int FindOneByOne(const KeyIndex::Keys& keys, std::string_view key) {
  const unsigned char last = key.empty() ? 0 : static_cast<unsigned char>(key.back());
  const auto is_same = [key, last](const SharedText& text) {
    const std::string_view other = text.View();
    const unsigned char its_last = other.empty() ? 0 : static_cast<unsigned char>(other.back());
    if ((last | its_last) >= 0x80) return IsSameKey(other, key);
    return last == its_last && other == key;
  };
  const auto found = std::find_if(keys.begin(), keys.end(), is_same);
  return found != keys.end() ? static_cast<int>(found - keys.begin()) : -1;
}

}  // namespace

std::string_view ComparedPart(std::string_view key) {
  const char* at = key.data();
  const char* const end = at + key.size();
  while (at < end) {
    const auto byte = static_cast<unsigned char>(*at);
    const bool is_lead = byte >= 0x80 && platform::IsLeadByte(byte);
    if (is_lead && at + 1 == end) break;
    at += is_lead ? 2 : 1;
  }
  return {key.data(), static_cast<std::size_t>(at - key.data())};
}

class KeyIndex::Table {
 public:
  explicit Table(const Keys& keys) { Rebuild(keys); }

  int Find(const Keys& keys, std::string_view key) const {
    const std::uint32_t entry = entries_[SlotOf(keys, ComparedPart(key))];
    return entry != kFree ? static_cast<int>(entry) : -1;
  }

  void Add(const Keys& keys, std::size_t position) {
    if (2 * (used_ + 1) > entries_.size()) return Rebuild(keys);
    std::uint32_t& entry = entries_[SlotOf(keys, ComparedPart(keys[position].View()))];
    if (entry != kFree) {
      has_duplicates_ = true;
      return;
    }
    entry = static_cast<std::uint32_t>(position);
    ++used_;
  }

  // The member behind the erased one takes its place. False when the table does not know which
  // duplicate comes next.
  bool Erase(std::size_t position) {
    if (has_duplicates_) return false;
    const auto erased = static_cast<std::uint32_t>(position);
    for (std::uint32_t& entry : entries_) {
      if (entry == erased)
        entry = kErased;
      else if (entry > erased && entry < kErased)
        --entry;
    }
    return true;
  }

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;
  static constexpr std::uint32_t kErased = 0xFFFFFFFE;  // still counts as used

  // Where the key stands, or the free slot where it belongs.
  std::size_t SlotOf(const Keys& keys, std::string_view key) const {
    const std::size_t mask = entries_.size() - 1;
    std::size_t slot = Hash(key) & mask;
    while (entries_[slot] != kFree &&
           (entries_[slot] == kErased || ComparedPart(keys[entries_[slot]].View()) != key)) {
      slot = (slot + 1) & mask;
    }
    return slot;
  }

  void Rebuild(const Keys& keys) {
    std::size_t size = 4 * kFewKeys;
    while (size < 4 * keys.size()) size *= 2;
    entries_.assign(size, kFree);
    used_ = 0;
    has_duplicates_ = false;
    for (std::size_t i = 0; i < keys.size(); ++i) Add(keys, i);
  }

  std::vector<std::uint32_t> entries_;
  std::size_t used_ = 0;
  bool has_duplicates_ = false;
};

int KeyIndex::Find(const Keys& keys, std::string_view key) const {
  if (keys.size() <= kFewKeys) return FindOneByOne(keys, key);
  const Table* table = table_.load(std::memory_order_acquire);
  if (table == nullptr) table = TryMakeTable(keys);
  return table != nullptr ? table->Find(keys, key) : FindOneByOne(keys, key);
}

// The table that is kept, which another thread may have made meanwhile; null without memory.
const KeyIndex::Table* KeyIndex::TryMakeTable(const Keys& keys) const try {
  auto made = std::make_unique<Table>(keys);
  Table* kept = nullptr;
  if (!table_.compare_exchange_strong(kept, made.get(), std::memory_order_acq_rel)) return kept;
  return made.release();
} catch (const std::bad_alloc&) {
  return nullptr;
}

void KeyIndex::Added(const Keys& keys) {
  Table* table = table_.load(std::memory_order_relaxed);
  if (table == nullptr) return;
  try {
    table->Add(keys, keys.size() - 1);
  } catch (const std::bad_alloc&) {
    Drop();  // it is made again when there is memory
  }
}

void KeyIndex::Erasing(std::size_t position) {
  Table* table = table_.load(std::memory_order_relaxed);
  if (table != nullptr && !table->Erase(position)) Drop();
}

void KeyIndex::DropTable() noexcept { delete table_.exchange(nullptr); }

}  // namespace quarnfc::json

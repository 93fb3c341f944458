// SPDX-License-Identifier: MIT
#include "json/key_cache.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quarnfc::json {
namespace {

template <class Word>
std::uint64_t Load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// All bytes of a short key, and the ends of a long one, in loads of fixed size that may overlap.
std::uint64_t Ends(std::string_view key) {
  const char* const first = key.data();
  const char* const end = first + key.size();
  if (key.size() >= 8) return Load<std::uint64_t>(first) + 31 * Load<std::uint64_t>(end - 8);
  if (key.size() >= 4) return Load<std::uint32_t>(first) | Load<std::uint32_t>(end - 4) << 32;
  return Load<std::uint8_t>(first) | Load<std::uint8_t>(first + key.size() / 2) << 8 |
         Load<std::uint8_t>(end - 1) << 16;
}

// The key is not empty.
std::size_t HashOf(std::string_view key) {
  const std::uint64_t mixed = (Ends(key) + key.size()) * std::uint64_t{0x9E3779B97F4A7C15};
  return static_cast<std::size_t>(mixed >> 32);
}

// (The operator of the standard library makes two calls of it.)
bool IsEqual(std::string_view left, std::string_view right) {
  return left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size()) == 0;
}

// The keys are not none.
std::size_t HashOf(const SharedText* first, const SharedText* last) {
  const auto address = [](const SharedText& text) {
    return reinterpret_cast<std::uintptr_t>(text.Characters());
  };
  const std::uint64_t sum =
      address(*first) + 31 * address(last[-1]) + static_cast<std::uint64_t>(last - first);
  return static_cast<std::size_t>(sum * std::uint64_t{0x9E3779B97F4A7C15} >> 32);
}

bool IsListOf(const KeyList& list, const SharedText* first, const SharedText* last) {
  return std::equal(
      list.begin(), list.end(), first, last,
      [](const SharedText& left, const SharedText& right) { return left.IsShareOf(right); });
}

}  // namespace

SharedText KeyCache::Decode(const RawString& key) {
  if (key.escapes > 0 || key.length == 0 || ++count_ <= kFewKeys) return DecodeString(key);
  if (tables_ == nullptr) tables_ = std::make_unique<Tables>();
  const std::string_view text(key.text, key.length);
  SharedText& place = tables_->texts[HashOf(text) % kTexts];
  if (!IsEqual(place.View(), text)) place = SharedText(text);
  return place.CopyUnpublished();
}

KeyList KeyCache::ListOf(SharedText* first, SharedText* last) {
  if (tables_ == nullptr || first == last) return {first, last};
  KeyList& place = tables_->lists[HashOf(first, last) % kLists];
  if (!IsListOf(place, first, last)) {
    place = KeyList(first, last);
    return place;
  }
  // The list has a reference to each of them.
  for (; first != last; ++first) first->DropUnpublished();
  return place;
}

}  // namespace quarnfc::json

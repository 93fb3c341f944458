// SPDX-License-Identifier: MIT
#include "json/key_cache.h"

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

}  // namespace

SharedText KeyCache::Decode(const RawString& key) {
  if (key.escapes > 0 || key.length == 0 || ++count_ <= kFewKeys) return DecodeString(key);
  if (places_ == nullptr) places_ = std::make_unique<std::array<SharedText, kPlaces>>();
  const std::string_view text(key.text, key.length);
  SharedText& place = (*places_)[HashOf(text) % kPlaces];
  if (place.View() != text) place = SharedText(text);
  return place;
}

}  // namespace quarnfc::json

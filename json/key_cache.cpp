#include "json/key_cache.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quarnfc::json {
namespace {

std::uint64_t LoadBytes(const char* bytes, std::size_t count) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, count);
  return word;
}

// Of the length and up to eight bytes from either end.
std::size_t HashOf(std::string_view key) {
  const std::size_t count = std::min<std::size_t>(key.size(), 8);
  const std::uint64_t first = LoadBytes(key.data(), count);
  const std::uint64_t last = LoadBytes(key.data() + key.size() - count, count);
  const std::uint64_t mixed = (first + last * 31 + key.size()) * std::uint64_t{0x9E3779B97F4A7C15};
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

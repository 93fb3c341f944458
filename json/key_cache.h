// SPDX-License-Identifier: MIT
// The keys of a document that is being read. Objects of one kind have the same keys over and over:
// equal ones share one text.
//
// Method: a table with one place for each value of a hash of length and ends; a key that finds
// another one in its place takes it. Short documents do without the table.
#ifndef QUARNFC_JSON_KEY_CACHE_H_
#define QUARNFC_JSON_KEY_CACHE_H_

#include <array>
#include <cstddef>
#include <memory>

#include "json/shared_text.h"
#include "json/text_rules.h"

namespace quarnfc::json {

class KeyCache {
 public:
  // The decoded key.
  SharedText Decode(const RawString& key);

 private:
  static constexpr std::size_t kPlaces = 256;
  static constexpr std::size_t kFewKeys = 32;

  std::size_t count_ = 0;
  std::unique_ptr<std::array<SharedText, kPlaces>> places_;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_KEY_CACHE_H_

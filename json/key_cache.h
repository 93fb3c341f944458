// SPDX-License-Identifier: MIT
// The keys of a document that is being read. Objects of one kind have the same keys over and over:
// equal keys share one text, and objects with the same keys one list of them.
//
// Method: two tables with one place for each value of a hash, of length and ends of a key, and of
// the texts of a list; what finds another in its place takes it. Short documents do without the
// tables.
#ifndef QUARNFC_JSON_KEY_CACHE_H_
#define QUARNFC_JSON_KEY_CACHE_H_

#include <array>
#include <cstddef>
#include <memory>

#include "json/key_list.h"
#include "json/shared_text.h"
#include "json/text_rules.h"

namespace quarnfc::json {

class KeyCache {
 public:
  // The decoded key.
  SharedText Decode(const RawString& key);

  // A list of these keys, all from Decode, which are moved out of their places.
  KeyList ListOf(SharedText* first, SharedText* last);

 private:
  static constexpr std::size_t kTexts = 128;
  static constexpr std::size_t kLists = 32;
  static constexpr std::size_t kFewKeys = 32;

  struct Tables {
    std::array<SharedText, kTexts> texts;
    std::array<KeyList, kLists> lists;
  };

  std::size_t count_ = 0;
  std::unique_ptr<Tables> tables_;
};

}  // namespace quarnfc::json

#endif  // QUARNFC_JSON_KEY_CACHE_H_

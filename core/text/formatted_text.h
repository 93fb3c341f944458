// SPDX-License-Identifier: MIT
// Text that grows, with room of its own for what most formats give.
#ifndef QUARNFC_CORE_TEXT_FORMATTED_TEXT_H_
#define QUARNFC_CORE_TEXT_FORMATTED_TEXT_H_

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#include "core/memory/memory.h"

namespace quarnfc {

class FormattedText {
 public:
  FormattedText() = default;
  FormattedText(const FormattedText&) = delete;
  FormattedText& operator=(const FormattedText&) = delete;

  std::string_view View() const { return {text_, size_}; }

  // These throw std::bad_alloc.
  void Append(std::string_view text) { Copy(text, Extend(text.size())); }
  void Append(std::size_t count, char ch) { std::memset(Extend(count), ch, count); }

  // Lengthens the text by count bytes, to be written there at once; returns where they lie.
  char* Extend(std::size_t count) {
    if (count > capacity_ - size_) Grow(count);
    char* const place = text_ + size_;
    size_ += count;
    return place;
  }

  // Writes a piece of text and returns what follows it.
  static char* Copy(std::string_view text, char* place) {
    if (!text.empty()) std::memcpy(place, text.data(), text.size());
    return place + text.size();
  }

 private:
  void Grow(std::size_t count) {
    const std::size_t capacity = std::max(2 * capacity_, size_ + count);
    OwnedText larger(AllocChars(capacity));
    std::memcpy(larger.get(), text_, size_);
    larger_ = std::move(larger);
    text_ = larger_.get();
    capacity_ = capacity;
  }

  char room_[480];
  OwnedText larger_;
  char* text_ = room_;
  std::size_t size_ = 0;
  std::size_t capacity_ = sizeof room_;
};

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_FORMATTED_TEXT_H_

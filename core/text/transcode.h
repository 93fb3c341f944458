// SPDX-License-Identifier: MIT
// Conversion of whole texts between the ANSI code page, UTF-8 and UTF-16: the one way to do it
// inside the library. (string_wide.cpp converts straight into the buffers of strings.)
//
// Allocation: the size is asked for first, so that no buffer is too small and none is cut.
// Failure: std::bad_alloc when memory runs out or a text has more units than an int counts. What is
// no character becomes the platform's replacement, as platform/code_page.h says.
#ifndef QUARNFC_CORE_TEXT_TRANSCODE_H_
#define QUARNFC_CORE_TEXT_TRANSCODE_H_

#include <cstddef>
#include <span>
#include <string_view>

#include "core/memory/memory.h"
#include "platform/code_page.h"

class CQNFixedAlloc;

namespace quarnfc {

using platform::Encoding;

// The UTF-16 form of a zero-terminated text for the time of one conversion. Hosts that watch the
// pools count on where it is: up to 64, 128, 256 and 512 units, the terminator included, in a block
// of the pool of twice as many bytes, longer ones on the heap.
class WideScratch {
 public:
  WideScratch(Encoding from, const char* text);
  ~WideScratch();
  WideScratch(const WideScratch&) = delete;
  WideScratch& operator=(const WideScratch&) = delete;

  // Zero-terminated; the span leaves the terminator out and may be written to.
  const wchar_t* Text() const { return units_; }
  std::span<wchar_t> Units() { return {units_, static_cast<std::size_t>(count_ - 1)}; }

 private:
  void Release();

  int count_;  // with the terminator
  CQNFixedAlloc* pool_;
  wchar_t* units_;
};

// New buffers with the converted zero-terminated text; null for null.
OwnedWideText ToWide(Encoding from, const char* text);
OwnedText FromWide(Encoding to, const wchar_t* text);

inline constexpr int kShortText = 1024;           // bytes
inline constexpr std::size_t kMostUtf8Bytes = 3;  // for each byte

// Writes the UTF-8 form of a short text in the ANSI code page, which ends behind a character, and
// returns its end. target has room for kMostUtf8Bytes for each byte. Throws std::bad_alloc where
// the text is longer than kShortText or empty.
char* AnsiToUtf8(std::string_view text, char* target);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_TRANSCODE_H_

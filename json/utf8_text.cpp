// SPDX-License-Identifier: MIT
#include "json/utf8_text.h"

#include <quarnfc/qn_string.h>

#include <cstring>
#include <span>
#include <string_view>

#include "core/text/transcode.h"
#include "platform/ascii_run.h"

namespace quarnfc::json {
namespace {

// The longest text whose UTF-16 form may fit into a block of a pool: 511 units, two bytes each.
constexpr std::size_t kLongestPooled = 1022;

// So many ASCII bytes in a row are copied; fewer between other characters are converted with them.
constexpr int kAsciiToCopy = 32;

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

// Steps over the character at text, and makes half a one whole.
char* TakeCharacter(char* text, const char* end) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (IsAscii(text[0]) || text + 1 == end || !platform::IsLeadByte(lead)) return text + 1;
  const bool whole =
      !IsAscii(text[1]) || platform::IsCharacter(lead, static_cast<unsigned char>(text[1]));
  if (!whole) text[0] = '?';
  return text + (whole ? 2 : 1);
}

OwnedText ConvertWhole(CQNString text) {
  char* at = text.GetBuffer(0);
  const char* const end = at + std::strlen(at);
  while (at != end) at = TakeCharacter(at, end);
  const WideScratch wide(Encoding::kAnsi, text);
  return FromWide(Encoding::kUtf8, wide.Text());
}

// The end of what is converted at once, text that begins with another character than ASCII: in
// front of the next ASCII text that is to be copied, but for its first bytes.
char* TakeMixed(char* text, char* end) {
  const char* const full = end - text < kShortText ? end : text + kShortText - 1;
  int ascii = 0;
  while (text < full && ascii < kAsciiToCopy) {
    ascii = IsAscii(*text) ? ascii + 1 : 0;
    text = TakeCharacter(text, end);
  }
  return text;
}

void ConvertPiece(std::span<char> piece, PieceList& utf8) {
  char* at = piece.data();
  char* const end = at + piece.size();
  while (at != end) {
    char* const mixed = at + platform::AsciiRunLength<char>(at, end);
    utf8.Append({at, mixed});
    at = TakeMixed(mixed, end);
    const std::string_view text(mixed, at);
    if (!text.empty()) utf8.Finish(AnsiToUtf8(text, utf8.Room(kMostUtf8Bytes * text.size())));
  }
}

}  // namespace

OwnedText ToUtf8(PieceList text) {
  const bool apart = platform::AnsiIsCodePage936() && text.Length() > kLongestPooled;
  if (!apart) return ConvertWhole(text.Join());
  PieceList utf8;
  text.Drain([&utf8](std::span<char> piece) { ConvertPiece(piece, utf8); });
  utf8.Append('\0');
  return utf8.JoinBuffer();
}

}  // namespace quarnfc::json

// SPDX-License-Identifier: MIT
// The reader behind JsonText (json_text.h): it walks a text once, by the grammar stated there, and
// notes where every value stands. A function for each rule; the containers that are open lie on a
// stack of the reader's own, so no text exhausts the thread's.
//
// Time and memory are proportional to the text; an error costs a second walk, for its line. Nothing
// of the text is copied: the reader and its spans are of use while the text's bytes stay where they
// are. std::bad_alloc when memory is exhausted. One thread at a time may use a reader.
//
// Example:
//   std::vector<quarnfc::ext::JsonSpan> spans;
//   quarnfc::ext::JsonTextReader reader("[1, 2]", {}, spans);
//   if (!reader.Read()) std::puts(reader.Error().Message());
#ifndef QUARNFC_EXT_JSON_TEXT_READER_H_
#define QUARNFC_EXT_JSON_TEXT_READER_H_

#include <quarnfc/ext/utf8_text.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quarnfc::ext {

// What a value is. A key is a string.
enum class JsonKind : unsigned char { kNull, kFalse, kTrue, kNumber, kString, kArray, kObject };

// Why a text is refused.
enum class JsonFault {
  kNone,
  kEnd,             // the text ends where more must follow
  kValue,           // no value starts here
  kKey,             // no key starts here
  kColon,           // no colon behind a key
  kCommaOrEnd,      // neither comma nor closing bracket behind an item
  kNumber,          // no digit where a number needs one, or a leading zero
  kEscape,          // a backslash with something that is no escape
  kSurrogate,       // an escaped surrogate without its partner
  kControl,         // a control character in a string
  kUtf8,            // no well-formed UTF-8
  kTrailing,        // text behind the document
  kDepth,           // more containers in one another than the limit allows
  kSize,            // more than 4,294,967,294 bytes
  kUnfinishedText,  // the text ends inside a string

  // Of json_load.h, where the text goes into the document model:
  kAnsi,          // bytes that are no text in the ANSI code page
  kCodePage,      // a character that the ANSI code page lacks
  kZero,          // a zero character, which no string of the model holds
  kDuplicateKey,  // a key that its object holds already
  kNumberRange,   // a number that no double comes near
};

// The fault in English, without the place; a constant of the program, in ASCII.
inline const char* MessageOf(JsonFault fault) {
  switch (fault) {
    case JsonFault::kNone:
      return "no error";
    case JsonFault::kEnd:
      return "the text ends too early";
    case JsonFault::kValue:
      return "a value is expected";
    case JsonFault::kKey:
      return "a key in double quotes is expected";
    case JsonFault::kColon:
      return "a colon is expected behind the key";
    case JsonFault::kCommaOrEnd:
      return "a comma or the closing bracket is expected";
    case JsonFault::kNumber:
      return "this is no number of JSON";
    case JsonFault::kEscape:
      return "this is no escape of JSON";
    case JsonFault::kSurrogate:
      return "an escaped surrogate lacks its partner";
    case JsonFault::kControl:
      return "a control character in a string must be escaped";
    case JsonFault::kUtf8:
      return "this is no UTF-8";
    case JsonFault::kTrailing:
      return "nothing may follow the document";
    case JsonFault::kDepth:
      return "the values are nested too deeply";
    case JsonFault::kSize:
      return "the text is too long";
    case JsonFault::kUnfinishedText:
      return "the string is not closed";
    case JsonFault::kAnsi:
      return "this is no text in the code page";
    case JsonFault::kCodePage:
      return "the code page lacks this character";
    case JsonFault::kZero:
      return "a zero character cannot be held";
    case JsonFault::kDuplicateKey:
      return "the key occurs twice in its object";
    case JsonFault::kNumberRange:
      return "the number is out of range";
  }
  return "";
}

// Why and where a text was refused.
struct JsonTextError {
  JsonFault fault = JsonFault::kNone;
  std::size_t offset = 0;  // in bytes, from 0
  std::size_t line = 0;    // from 1; lines end with LF
  std::size_t column = 0;  // from 1, in characters

  // As MessageOf.
  const char* Message() const { return MessageOf(fault); }
};

// What a text may ask of the reader.
struct JsonTextLimits {
  std::size_t max_depth = 1000;  // arrays and objects in one another
};

// Where a value, or a key, stands: offsets in bytes from the start of the text, quotes and brackets
// of the value included.
struct JsonSpan {
  JsonKind kind;
  std::uint32_t begin;  // bytes
  std::uint32_t end;
  std::uint32_t next;   // the index of the first span behind this one and what it holds
  std::uint32_t count;  // members or elements
};

// Reads one text, once.
class JsonTextReader {
 public:
  // The spans come in the order of the text: a container before its items, a key before its value.
  // They are appended; text and spans must outlive the reader.
  JsonTextReader(std::string_view text, const JsonTextLimits& limits, std::vector<JsonSpan>& spans)
      : text_(text), limits_(limits), spans_(spans) {}

  // Walks the whole text. False when it is refused: Error tells why and where, and the spans in
  // front of that place are those noted so far.
  bool Read() {
    if (text_.size() >= UINT32_MAX) return Fail(JsonFault::kSize, 0);
    SkipBlanks();
    bool good = ReadValue();
    while (good && !open_.empty()) good = ReadItem();
    if (!good) return false;
    SkipBlanks();
    return AtEnd() || Fail(JsonFault::kTrailing, at_);
  }

  // The first fault; kNone before Read and after one that succeeded.
  const JsonTextError& Error() const { return error_; }

 private:
  bool AtEnd() const { return at_ == text_.size(); }
  char Peek() const { return AtEnd() ? '\0' : text_[at_]; }
  static bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

  bool Fail(JsonFault fault, std::size_t offset) {
    const TextPlace place = PlaceInText(text_, offset);
    error_ = {fault, offset, place.line, place.column};
    return false;
  }

  // At the end of the text that is what is wrong.
  bool FailHere(JsonFault fault) { return Fail(AtEnd() ? JsonFault::kEnd : fault, at_); }

  void SkipBlanks() {
    while (!AtEnd() &&
           (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t')) {
      ++at_;
    }
  }

  void Add(JsonKind kind, std::size_t begin) {
    const auto next = static_cast<std::uint32_t>(spans_.size() + 1);
    spans_.push_back(
        {kind, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(at_), next, 0});
  }

  // A scalar whole; of a container the opening bracket.
  bool ReadValue() {
    switch (Peek()) {
      case '{':
        return Open(JsonKind::kObject);
      case '[':
        return Open(JsonKind::kArray);
      case '"':
        return ReadString();
      case 't':
        return ReadLiteral("true", JsonKind::kTrue);
      case 'f':
        return ReadLiteral("false", JsonKind::kFalse);
      case 'n':
        return ReadLiteral("null", JsonKind::kNull);
      default:
        return ReadNumber();
    }
  }

  bool Open(JsonKind kind) {
    if (open_.size() >= limits_.max_depth) return Fail(JsonFault::kDepth, at_);
    open_.push_back(spans_.size());
    ++at_;
    Add(kind, at_ - 1);
    return true;
  }

  bool Close() {
    ++at_;
    JsonSpan& span = spans_[open_.back()];
    span.end = static_cast<std::uint32_t>(at_);
    span.next = static_cast<std::uint32_t>(spans_.size());
    open_.pop_back();
    return true;
  }

  // The next item of the innermost open container, or its end.
  bool ReadItem() {
    JsonSpan& container = spans_[open_.back()];
    const bool object = container.kind == JsonKind::kObject;
    SkipBlanks();
    if (Peek() == (object ? '}' : ']')) return Close();
    if (container.count > 0) {
      if (Peek() != ',') return FailHere(JsonFault::kCommaOrEnd);
      ++at_;
      SkipBlanks();
    }
    ++container.count;
    return (!object || ReadKey()) && ReadValue();
  }

  bool ReadKey() {
    if (Peek() != '"') return FailHere(JsonFault::kKey);
    if (!ReadString()) return false;
    SkipBlanks();
    if (Peek() != ':') return FailHere(JsonFault::kColon);
    ++at_;
    SkipBlanks();
    return true;
  }

  bool ReadLiteral(std::string_view literal, JsonKind kind) {
    if (text_.substr(at_, literal.size()) != literal) return Fail(JsonFault::kValue, at_);
    at_ += literal.size();
    Add(kind, at_ - literal.size());
    return true;
  }

  bool ReadDigits() {
    if (!IsDigit(Peek())) return FailHere(JsonFault::kNumber);
    while (IsDigit(Peek())) ++at_;
    return true;
  }

  bool ReadNumber() {
    const std::size_t begin = at_;
    if (Peek() != '-' && !IsDigit(Peek())) return FailHere(JsonFault::kValue);
    if (Peek() == '-') ++at_;
    const bool zero = Peek() == '0';
    if (!ReadDigits()) return false;
    const std::size_t digits = at_ - begin - (text_[begin] == '-' ? 1 : 0);
    if (zero && digits > 1) return Fail(JsonFault::kNumber, begin);
    if (!ReadFraction() || !ReadExponent()) return false;
    Add(JsonKind::kNumber, begin);
    return true;
  }

  bool ReadFraction() {
    if (Peek() != '.') return true;
    ++at_;
    return ReadDigits();
  }

  bool ReadExponent() {
    if (Peek() != 'e' && Peek() != 'E') return true;
    ++at_;
    if (Peek() == '+' || Peek() == '-') ++at_;
    return ReadDigits();
  }

  bool ReadString() {
    const std::size_t begin = at_;
    ++at_;
    while (!AtEnd() && text_[at_] != '"') {
      if (!ReadChar()) return false;
    }
    if (AtEnd()) return Fail(JsonFault::kUnfinishedText, begin);
    ++at_;
    Add(JsonKind::kString, begin);
    return true;
  }

  bool ReadChar() {
    if (text_[at_] == '\\') return ReadEscape();
    if (static_cast<unsigned char>(text_[at_]) < 0x20) return Fail(JsonFault::kControl, at_);
    const std::size_t length = Utf8CharLength(text_, at_);
    if (length == 0) return Fail(JsonFault::kUtf8, at_);
    at_ += length;
    return true;
  }

  bool ReadEscape() {
    const std::size_t begin = at_;
    const char ch = at_ + 1 < text_.size() ? text_[at_ + 1] : '\0';
    if (ch == 'u') return ReadUnicodeEscape();
    if (ch == '\0' || std::string_view("\"\\/bfnrt").find(ch) == std::string_view::npos) {
      return Fail(at_ + 1 < text_.size() ? JsonFault::kEscape : JsonFault::kEnd, begin);
    }
    at_ += 2;
    return true;
  }

  bool ReadUnicodeEscape() {
    const std::size_t begin = at_;
    unsigned unit = 0;
    if (!ReadHex(unit)) return Fail(JsonFault::kEscape, begin);
    if (unit < 0xD800 || unit >= 0xE000) return true;
    unsigned partner = 0;
    const bool paired = unit < 0xDC00 && ReadHex(partner) && partner >= 0xDC00 && partner < 0xE000;
    return paired || Fail(JsonFault::kSurrogate, begin);
  }

  // "\u" and four hexadecimal digits.
  bool ReadHex(unsigned& unit) {
    const std::string_view escape = text_.substr(at_, 6);
    if (escape.size() < 6 || escape[0] != '\\' || escape[1] != 'u') return false;
    unit = 0;
    for (const char ch : escape.substr(2)) {
      const std::size_t digit = std::string_view("0123456789abcdefABCDEF").find(ch);
      if (digit == std::string_view::npos) return false;
      unit = unit * 16 + static_cast<unsigned>(digit < 16 ? digit : digit - 6);
    }
    at_ += 6;
    return true;
  }

  std::string_view text_;
  JsonTextLimits limits_;
  std::vector<JsonSpan>& spans_;
  std::vector<std::size_t> open_;
  std::size_t at_ = 0;
  JsonTextError error_;
};

// The text between the quotes of a string that the reader has accepted, escapes resolved.
inline std::string UnescapeJson(std::string_view inner) {
  constexpr std::string_view kNames = "bfnrt";
  constexpr std::string_view kMeanings = "\b\f\n\r\t";
  const auto unit = [&](std::size_t digits) {
    unsigned value = 0;
    for (const char ch : inner.substr(digits, 4)) {
      const unsigned low = static_cast<unsigned char>(ch) & 0x0FU;
      value = value * 16 + (ch > '9' ? low + 9 : low);
    }
    return static_cast<char32_t>(value);
  };
  std::string text;
  text.reserve(inner.size());
  for (std::size_t i = 0; i < inner.size(); ++i) {
    if (inner[i] != '\\') {
      text += inner[i];
      continue;
    }
    const char ch = inner[++i];
    if (ch == 'u') {
      char32_t code = unit(i + 1);
      i += 4;
      if (code >= 0xD800 && code < 0xDC00) {
        code = 0x10000 + ((code - 0xD800) << 10) + (unit(i + 3) - 0xDC00);
        i += 6;
      }
      AppendUtf8(text, code);
    } else {
      const std::size_t name = kNames.find(ch);
      text += name == std::string_view::npos ? ch : kMeanings[name];
    }
  }
  return text;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_JSON_TEXT_READER_H_

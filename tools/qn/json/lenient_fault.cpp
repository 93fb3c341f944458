// SPDX-License-Identifier: MIT
#include "qn/json/lenient_fault.h"

#include <quarnfc/json_value.h>

#include <algorithm>
#include <chrono>
#include <string_view>

namespace qn {
namespace {

constexpr std::string_view kWhitespace = " \t\r\n";

// The reader's message for a text; empty when it can be read, or fails without one.
std::string ReaderMessage(const char* text) {
  CMyJsonValue value;
  CQNString message;
  value.Load(text, message);
  return static_cast<const char*>(message);
}

// --- whether the reader would stop at a place ---------------------------------------------------

// What a message says, and whether it could be said of the text at offset.
struct Kind {
  std::string_view message;
  const char* meaning;
  bool (*fits)(const std::string& text, std::size_t offset, const std::string& message);
  bool exact;  // only one place can fit
};

bool HasClosingQuote(const std::string& text, std::size_t at) {
  while ((at = text.find_first_of("\"\\", at)) != std::string::npos && text[at] == '\\') at += 2;
  return at < text.size();
}

bool FitsKey(const std::string& text, std::size_t offset, const std::string&) {
  return offset > 0 && text[offset - 1] == '"' && !HasClosingQuote(text, offset);
}

bool FitsString(const std::string& text, std::size_t offset, const std::string&) {
  return !HasClosingQuote(text, offset + 1);
}

bool FitsNumber(const std::string& text, std::size_t offset, const std::string&) {
  return text.find_first_of(", \t\r\n]}", offset) == std::string::npos;
}

// With the text ending here, the reader misses the colon here.
bool FitsColon(const std::string& text, std::size_t offset, const std::string& message) {
  const std::string cut = ReaderMessage(text.substr(0, offset).c_str());
  return cut == message.substr(0, cut.size()) && cut.size() + 50 == message.size();
}

// The object that begins here cannot be read on its own either.
bool FitsBrace(const std::string& text, std::size_t offset, const std::string& message) {
  const std::size_t brace = text.find_last_not_of(kWhitespace, offset);
  return brace != std::string::npos && text[brace] == '{' &&
         ReaderMessage(text.c_str() + brace) == message;
}

constexpr Kind kKinds[] = {
    {"Invalid key: ", "a key that does not end", FitsKey, true},
    {"Can't find ':' : ", "a key without a colon behind it", FitsColon, true},
    {"Invalid string : ", "a string that does not end", FitsString, true},
    {"Invalid number : ", "the text ends in this number or word", FitsNumber, true},
    {"Can't find '}' : ", "the object that begins here is broken or does not end", FitsBrace,
     false},
};

// --- finding the place --------------------------------------------------------------------------

using Clock = std::chrono::steady_clock;

// Examining a place may take reading the whole text, and there may be a million places.
constexpr std::chrono::seconds kLongestSearch{3};

LenientFault Locate(const std::string& text, const Kind& kind, const std::string& message) {
  constexpr std::size_t kCutAt = 50;
  const std::string snippet = message.substr(kind.message.size());
  if (snippet.size() < kCutAt) return {text.size() - snippet.size(), kind.meaning, true};

  const std::size_t first = text.find(snippet);
  if (text.find(snippet, first + 1) == std::string::npos) return {first, kind.meaning, true};
  std::optional<std::size_t> found;
  const Clock::time_point deadline = Clock::now() + kLongestSearch;
  for (std::size_t at = first; at != std::string::npos; at = text.find(snippet, at + 1)) {
    if (Clock::now() > deadline) return {found.value_or(first), kind.meaning, false};
    if (!kind.fits(text, at, message)) continue;
    if (found) return {*found, kind.meaning, false};
    found = at;
    if (kind.exact) break;
  }
  return {found.value_or(first), kind.meaning, found.has_value()};
}

}  // namespace

std::optional<LenientFault> FindLenientFault(const std::string& text) {
  CMyJsonValue value;
  CQNString reason;
  if (value.Load(text.c_str(), reason)) return std::nullopt;
  const std::string message = static_cast<const char*>(reason);
  for (const Kind& kind : kKinds) {
    if (message.starts_with(kind.message)) return Locate(text, kind, message);
  }
  const std::size_t start = std::min(text.find_first_not_of(kWhitespace), text.size());
  if (message.empty()) return LenientFault{start, "the array that begins here does not end", true};
  return LenientFault{start, "this is no JSON value, or does not end", true};
}

}  // namespace qn

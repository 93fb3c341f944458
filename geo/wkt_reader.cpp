// SPDX-License-Identifier: MIT
#include "geo/wkt_reader.h"

#include <memory>
#include <string_view>
#include <utility>

#include "geo/messages.h"
#include "geo/wkt_number.h"
#include "geo/wkt_tokenizer.h"

namespace quarnfc::geo {

namespace {

CQNString ToString(std::string_view text) {
  return CQNString(text.data(), static_cast<int>(text.size()));
}

std::unique_ptr<CWKTDefValue> MakeValue(const WktToken& token) {
  if (!token.quoted && IsWktNumber(token.text)) {
    return std::make_unique<CWKTDefValue>(ReadWktNumber(token.text));
  }
  return std::make_unique<CWKTDefValue>(ToString(token.text), !token.quoted);
}

class WktParser {
 public:
  WktParser(const char* wkt, CWKTDef& root, CQNString& error)
      : tokenizer_(wkt), error_(error), open_{&root} {}

  bool ReadText();

 private:
  bool ReadRootKeyword();
  bool ReadValue(const WktToken& token);
  bool EndValue(const WktToken& token, const WktToken& mark);
  void OpenNode(std::string_view keyword);

  bool Fail(const char* message);
  bool FailAfter(const WktToken& token, const char* message);

  WktTokenizer tokenizer_;
  CQNString& error_;
  std::vector<CWKTDef*> open_;  // the nodes not yet closed, the root first
};

// Commas are lenient: repeated ones are skipped, and none is needed behind a closed node.
bool WktParser::ReadText() {
  if (!ReadRootKeyword()) return false;
  WktToken token;
  while (tokenizer_.Next(token)) {
    if (token.Is(']')) {
      open_.pop_back();
      if (open_.empty()) return tokenizer_.AtEnd() || Fail(messages::kBracketsDoNotMatch);
    } else if (!token.Is(',') && !ReadValue(token)) {
      return false;
    }
  }
  return Fail(messages::kBracketsDoNotMatch);
}

bool WktParser::ReadRootKeyword() {
  WktToken keyword;
  WktToken bracket;
  if (!tokenizer_.Next(keyword) || keyword.quoted || !tokenizer_.Next(bracket) ||
      !bracket.Is('[')) {
    return Fail(messages::kNoKey);
  }
  open_.back()->SetKeyword(ToString(keyword.text));
  return true;
}

// A value, or the keyword and opening bracket of a node.
bool WktParser::ReadValue(const WktToken& token) {
  if (token.Is('[')) return Fail(messages::kBracketsDoNotMatch);
  WktToken mark;
  if (!tokenizer_.Next(mark) || mark.quoted) return FailAfter(token, messages::kNoEndMark);
  if (mark.Is('[') && !token.quoted) {
    OpenNode(token.text);
    return true;
  }
  open_.back()->Append(MakeValue(token));
  return EndValue(token, mark);
}

// Deliberate: a bracket right behind a plain value closes any node but the root, so the root's
// list must end with a node or be empty.
bool WktParser::EndValue(const WktToken& token, const WktToken& mark) {
  if (mark.Is(',')) return true;
  if (!mark.Is(']')) return FailAfter(token, messages::kNoValidEndMark);
  open_.pop_back();
  return !open_.empty() || Fail(messages::kBracketsDoNotMatch);
}

void WktParser::OpenNode(std::string_view keyword) {
  auto node = std::make_unique<CWKTDef>(ToString(keyword));
  CWKTDef* const opened = node.get();
  open_.back()->Append(std::move(node));
  open_.push_back(opened);
}

bool WktParser::Fail(const char* message) {
  error_ = message;
  return false;
}

bool WktParser::FailAfter(const WktToken& token, const char* message) {
  const CQNString text = ToString(token.text);
  error_.Format(message, static_cast<const char*>(text));
  return false;
}

}  // namespace

bool CWKTDef::Parse(const char* wkt, CQNString& error) {
  if (wkt == nullptr) {
    error = messages::kNullText;
    return false;
  }
  return WktParser(wkt, *this, error).ReadText();
}

}  // namespace quarnfc::geo

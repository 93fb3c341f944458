// SPDX-License-Identifier: MIT
// Well-Known Text after its rules, step by step: a list of tokens, and a tree of it. Texts are in
// code page 936 without broken characters.
#ifndef QUARNFC_FUZZ_WKT_REFERENCE_H_
#define QUARNFC_FUZZ_WKT_REFERENCE_H_

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/reference.h"
#include "geo/messages.h"

namespace fuzz {

// The message's "%s" replaced.
inline std::string Filled(std::string message, const std::string& text) {
  return message.replace(message.find("%s"), 2, text);
}

// Names here are ASCII, so letters of double-byte characters do not matter.
inline bool IsSameName(std::string_view a, std::string_view b) {
  const auto lower = [](char ch) {
    return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

// --- tokens -------------------------------------------------------------------------------------

struct WktToken {
  std::string text;
  bool quoted = false;

  bool Is(const char* mark) const { return !quoted && text == mark; }
};

inline bool IsWktBlank(const std::string& character) {
  return std::string_view(" \t\r\n").find(character) != std::string_view::npos;
}

// The tokens up to the end of the text, or up to where none can be told; complete says which.
inline std::vector<WktToken> WktTokens(const std::string& wkt, bool& complete) {
  const Characters characters = CharactersOf(wkt);
  const auto is_mark = [&](std::size_t i) {
    return characters[i] == "," || characters[i] == "[" || characters[i] == "]";
  };
  std::vector<WktToken> tokens;
  complete = false;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    if (IsWktBlank(characters[i])) continue;
    WktToken token;
    if (is_mark(i)) {
      token.text = characters[i];
    } else if (characters[i] == "\"") {
      token.quoted = true;
      for (++i; i < characters.size() && characters[i] != "\""; ++i) token.text += characters[i];
      if (i == characters.size()) return tokens;
    } else {
      for (; i < characters.size() && !is_mark(i); ++i) token.text += characters[i];
      if (i == characters.size()) return tokens;
      token.text = TrimRight(token.text, IsWktBlank);
      --i;
    }
    tokens.push_back(token);
  }
  complete = true;
  return tokens;
}

// --- the tree -----------------------------------------------------------------------------------

struct WktReferenceNode {
  enum class Kind { kNode, kQuoted, kWord, kNumber };

  Kind kind = Kind::kNode;
  std::string text;  // of a node its keyword
  double number = 0;
  std::vector<WktReferenceNode> values;

  const WktReferenceNode* Child(std::string_view keyword) const {
    for (const WktReferenceNode& value : values) {
      if (value.kind == Kind::kNode && IsSameName(value.text, keyword)) return &value;
    }
    return nullptr;
  }
};

inline WktReferenceNode WktPlainValue(const WktToken& token) {
  using Kind = WktReferenceNode::Kind;
  if (token.quoted) return {Kind::kQuoted, token.text, 0, {}};
  if (token.text.find_first_not_of("0123456789.+-") != std::string::npos) {
    return {Kind::kWord, token.text, 0, {}};
  }
  // Without a digit behind sign and point nothing is converted, whatever C libraries make of the
  // sign.
  std::size_t digit = token.text.find_first_of("+-") == 0 ? 1 : 0;
  if (token.text.substr(digit, 1) == ".") ++digit;
  const bool has_digit = token.text.find_first_of("0123456789") == digit;
  const double number = has_digit ? std::strtod(token.text.c_str(), nullptr) : 0.0;
  return {Kind::kNumber, "", number, {}};
}

class WktReference {
 public:
  explicit WktReference(const std::string& wkt) : tokens_(WktTokens(wkt, complete_)) {}

  bool Read(WktReferenceNode& root) {
    if (tokens_.size() < 2 || tokens_[0].quoted || !tokens_[1].Is("[")) {
      return Fail(quarnfc::geo::messages::kNoKey);
    }
    root.text = tokens_[0].text;
    at_ = 2;
    if (!ReadList(root, true)) return false;
    return (at_ == tokens_.size() && complete_) || FailBrackets();
  }

  const std::string& Message() const { return message_; }

 private:
  bool Fail(const std::string& message) {
    message_ = message;
    return false;
  }

  bool FailBrackets() { return Fail(quarnfc::geo::messages::kBracketsDoNotMatch); }

  // Up to the closing bracket. One right behind a plain value does not close the root.
  bool ReadList(WktReferenceNode& node, bool is_root) {
    while (at_ < tokens_.size()) {
      const WktToken token = tokens_[at_++];
      if (token.Is("]")) return true;
      if (token.Is(",")) continue;
      if (token.Is("[")) return FailBrackets();
      if (at_ == tokens_.size() || tokens_[at_].quoted) {
        return Fail(Filled(quarnfc::geo::messages::kNoEndMark, token.text));
      }
      const WktToken mark = tokens_[at_++];
      if (mark.Is("[") && !token.quoted) {
        node.values.push_back({WktReferenceNode::Kind::kNode, token.text, 0, {}});
        if (!ReadList(node.values.back(), false)) return false;
        continue;
      }
      node.values.push_back(WktPlainValue(token));
      if (mark.Is("]")) return !is_root || FailBrackets();
      if (!mark.Is(",")) return Fail(Filled(quarnfc::geo::messages::kNoValidEndMark, token.text));
    }
    return FailBrackets();
  }

  bool complete_ = false;
  std::vector<WktToken> tokens_;
  std::size_t at_ = 0;
  std::string message_;
};

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_WKT_REFERENCE_H_

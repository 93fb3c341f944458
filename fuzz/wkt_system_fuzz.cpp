// SPDX-License-Identifier: MIT
// WKT 1 and 2 as other software writes it: the tree against a slow reference, and the system, which
// must be the same from the tree written anew with other brackets and blanks.
#include <quarnfc/ext/wkt_system.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

using quarnfc::ext::ParseWkt;
using quarnfc::ext::ReadWktSystem;
using quarnfc::ext::TransverseMercatorParameters;
using quarnfc::ext::WktNode;
using quarnfc::ext::WktReport;
using quarnfc::ext::WktSystem;

struct Token {
  char kind;  // "w" word, "q" quoted text, or the mark itself
  std::string text;
};

// False where a quoted text is not closed.
bool Tokens(const std::string& text, std::vector<Token>& tokens) {
  const std::string marks = "[](),";
  for (std::size_t i = 0; i < text.size();) {
    if (std::string(" \t\r\n").find(text[i]) != std::string::npos) {
      ++i;
    } else if (marks.find(text[i]) != std::string::npos) {
      tokens.push_back({text[i++], ""});
    } else if (text[i] == '"') {
      Token token{'q', ""};
      for (++i; text.substr(i, 1) != "\"" || text.substr(i, 2) == "\"\""; ++i) {
        if (i >= text.size()) return false;
        if (text[i] == '"') ++i;
        token.text += text[i];
      }
      ++i;
      tokens.push_back(token);
    } else {
      const std::size_t end = std::min(text.find_first_of("[](), \t\r\n\"", i), text.size());
      tokens.push_back({'w', text.substr(i, end - i)});
      i = end;
    }
  }
  return true;
}

std::string PlainValue(const std::string& text) { return std::to_string(text.size()) + ":" + text; }

// A value in one spelling; at moves behind it. "" where the tokens are none.
std::string Canonical(const std::vector<Token>& tokens, std::size_t& at, int depth) {
  constexpr int kDeepest = 32;
  if (at == tokens.size() || depth > kDeepest) return "";
  const Token& token = tokens[at++];
  const char open = at < tokens.size() ? tokens[at].kind : '\0';
  if (token.kind == 'q') return PlainValue(token.text);
  if (token.kind != 'w') return "";
  if (open != '[' && open != '(') return PlainValue(token.text);
  std::string text = token.text + "[";
  do {
    ++at;
    const std::string value = Canonical(tokens, at, depth + 1);
    if (value.empty() || at == tokens.size()) return "";
    text += value + ",";
  } while (tokens[at].kind == ',');
  if (tokens[at++].kind != (open == '[' ? ']' : ')')) return "";
  return text + "]";
}

// The whole must be a node.
std::string Canonical(const std::string& text) {
  std::vector<Token> tokens;
  std::size_t at = 0;
  if (!Tokens(text, tokens)) return "";
  const std::string canonical = Canonical(tokens, at, 0);
  const bool is_node = tokens.size() > 1 && (tokens[1].kind == '[' || tokens[1].kind == '(');
  return at == tokens.size() && is_node ? canonical : "";
}

std::string Canonical(const WktNode& node) {
  if (node.keyword.empty()) return PlainValue(node.text);
  std::string text = node.keyword + "[";
  for (const WktNode& value : node.values) text += Canonical(value) + ",";
  return text + "]";
}

// The same tree as a text of WKT; quotes around every value that is no node change nothing.
std::string Written(const WktNode& node) {
  if (node.keyword.empty()) {
    std::string text;
    for (const char ch : node.text) text += ch == '"' ? std::string(2, ch) : std::string(1, ch);
    return "\"" + text + "\"";
  }
  std::string text = node.keyword + "\t(";
  for (const WktNode& value : node.values) text += "\r\n " + Written(value) + " ,";
  text.back() = ')';
  return text;
}

void CheckSystem(const WktSystem& system) {
  const TransverseMercatorParameters& parameters = system.parameters;
  for (const double number :
       {system.ellipsoid.semi_major_axis, system.ellipsoid.inverse_flattening, system.unit,
        parameters.central_meridian, parameters.latitude_of_origin, parameters.scale_factor,
        parameters.false_easting, parameters.false_northing}) {
    fuzz::Expect(std::isfinite(number));
  }
  fuzz::Expect(system.ellipsoid.semi_major_axis > 0 && system.ellipsoid.inverse_flattening > 1);
  fuzz::Expect(system.unit > 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  WktNode root;
  std::string error;
  const bool is_read = ParseWkt(text, root, error);
  fuzz::Expect(is_read == error.empty());
  fuzz::Expect((is_read ? Canonical(root) : "") == Canonical(text));

  WktReport report;
  const auto system = ReadWktSystem(text, &report);
  fuzz::Expect(system.has_value() == report.error.empty());
  if (!is_read) return 0;
  if (system) CheckSystem(*system);
  WktReport report_again;
  const auto again = ReadWktSystem(Written(root), &report_again);
  fuzz::Expect(again.has_value() == system.has_value());
  fuzz::Expect(report_again.error == report.error);
  fuzz::Expect(report_again.not_honoured == report.not_honoured);
  return 0;
}

// SPDX-License-Identifier: MIT
#include "platform/posix/internet/head.h"

#include <algorithm>
#include <utility>

namespace quarnfc::internet {
namespace {

constexpr std::size_t kUsualHeaders = 8;

char Lower(char ch) { return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch; }

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// The next line of text, which loses it.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

}  // namespace

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

bool SplitHeader(std::string_view line, Header& header) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return false;
  header.name = Trimmed(line.substr(0, colon));
  header.value = Trimmed(line.substr(colon + 1));
  return !header.name.empty() && header.name.find_first_of(" \t") == std::string::npos;
}

DWORD Headers::AddLines(std::string_view text, DWORD flags) {
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.empty()) continue;
    Header header;
    if (!SplitHeader(line, header)) return ERROR_HTTP_INVALID_HEADER;
    if (const DWORD error = AddOne(std::move(header), flags)) return error;
  }
  return 0;
}

DWORD Headers::AddOne(Header header, DWORD flags) {
  Header* existing = FindFirst(header.name);
  if (existing != nullptr && (flags & HTTP_ADDREQ_FLAG_ADD_IF_NEW) != 0) {
    return ERROR_HTTP_HEADER_ALREADY_EXISTS;
  }
  if (existing != nullptr && (flags & HTTP_ADDREQ_FLAG_COALESCE) != 0) {
    existing->value += ", " + header.value;
    return 0;
  }
  if ((flags & HTTP_ADDREQ_FLAG_REPLACE) != 0) {
    if (existing == nullptr && (flags & HTTP_ADDREQ_FLAG_ADD) == 0) {
      return ERROR_HTTP_HEADER_NOT_FOUND;
    }
    Remove(header.name);
    if (header.value.empty()) return 0;
  }
  Add(std::move(header.name), std::move(header.value));
  return 0;
}

void Headers::Add(std::string name, std::string value) {
  if (headers_.empty()) headers_.reserve(kUsualHeaders);
  headers_.push_back({std::move(name), std::move(value)});
}

void Headers::AddIfNew(const char* name, std::string value) {
  if (FindFirst(name) == nullptr) Add(name, std::move(value));
}

void Headers::Remove(std::string_view name) {
  std::erase_if(headers_, [name](const Header& h) { return EqualIgnoringCase(h.name, name); });
}

Header* Headers::FindFirst(std::string_view name) {
  for (Header& header : headers_) {
    if (EqualIgnoringCase(header.name, name)) return &header;
  }
  return nullptr;
}

const std::string* Headers::Find(std::string_view name, DWORD skip) const {
  for (const Header& header : headers_) {
    if (EqualIgnoringCase(header.name, name) && skip-- == 0) return &header.value;
  }
  return nullptr;
}

// "HTTP/1.1 200 OK"; the reason may be missing.
bool ResponseHead::Parse(const std::vector<std::string>& lines) {
  *this = ResponseHead();
  if (lines.empty()) return false;
  const std::string& first = lines[0];
  const std::size_t space = first.find(' ');
  if (first.rfind("HTTP/", 0) != 0 || space == std::string::npos) return false;
  const std::string code = first.substr(space + 1, 3);
  if (code.size() != 3 || !std::all_of(code.begin(), code.end(), IsDigit)) return false;
  version = first.substr(0, space);
  status = static_cast<DWORD>(std::stoi(code));
  reason = first.size() > space + 4 ? Trimmed(std::string_view(first).substr(space + 4)) : "";
  for (std::size_t i = 1; i < lines.size(); ++i) {
    Header header;
    if (SplitHeader(lines[i], header)) {
      headers.Add(std::move(header.name), std::move(header.value));
    }
  }
  return true;
}

}  // namespace quarnfc::internet

// SPDX-License-Identifier: MIT
// Path joining against its rules, one step after the other: base, zero, path.
#include <quarnfc/plain.h>
#include <quarnfc/string_utils.h>

#include <cstring>
#include <string>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

bool IsBackslash(const std::string& character) { return character == "\\"; }

std::string WithBackslashes(const std::string& text) {
  fuzz::Characters characters = fuzz::CharactersOf(text);
  for (std::string& character : characters) {
    if (character == "/") character = "\\";
  }
  return fuzz::Joined(characters);
}

// Whether a character ":" stands behind the first byte.
bool HasColonBehindTheFirst(const std::string& path) {
  std::size_t at = 0;
  for (const std::string& character : fuzz::CharactersOf(path)) {
    if (character == ":" && at > 0) return true;
    at += character.size();
  }
  return false;
}

// The base without its last folder, a backslash at its end; empty when there is no backslash left.
std::string Above(const std::string& base) {
  const std::string cut = fuzz::TrimRight(base, IsBackslash);
  return fuzz::TrimRight(cut, [](const std::string& character) { return character != "\\"; });
}

bool Join(std::string base, std::string& path) {
  base = fuzz::TrimRight(WithBackslashes(base), IsBackslash) + "\\";
  path = fuzz::TrimRight(fuzz::TrimLeft(path, fuzz::IsBlank), fuzz::IsBlank);
  if (path.empty()) return path = base, true;
  path = WithBackslashes(path);
  if (path.size() == 1) return path = base + (path == "\\" ? "" : path), true;
  if (path.substr(0, 2) == "\\\\" || HasColonBehindTheFirst(path)) return true;
  path = fuzz::TrimLeft(path, IsBackslash);
  while (path.substr(0, 1) == ".") {
    if (path.substr(0, 2) == ".\\") {
      path.erase(0, 2);
    } else if (path.substr(0, 3) == "..\\") {
      path.erase(0, 3);
      base = Above(base);
      if (base.empty()) return false;
    } else {
      return false;
    }
  }
  path = base + path;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string base = input.Text();
  const std::string path = input.Text();

  char* joined = qnUnionPath(base.c_str(), path.c_str());
  CQNString base_string(base.c_str());
  CQNString path_string(path.c_str());
  const bool is_joined = qnUnionPathEx(base_string, path_string);

  fuzz::Expect(is_joined == (joined != nullptr));
  fuzz::Expect(base == static_cast<const char*>(base_string));
  if (is_joined) fuzz::Expect(std::strcmp(joined, path_string) == 0);
  qnFreeMem(joined);

  if (fuzz::IsCutOff(base) || fuzz::IsCutOff(path)) return 0;
  std::string expected = path;
  fuzz::Expect(Join(base, expected) == is_joined);
  fuzz::Expect(fuzz::BytesOf(path_string) == expected);
  return 0;
}

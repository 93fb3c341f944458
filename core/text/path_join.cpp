// SPDX-License-Identifier: MIT
// Joining a folder and a path:
//
//   absolute = "\\" ...  |  one character or more, then ":" ...
//   relative = { "\" } { ".\" | "..\" } name ...
//
// with every slash read as a backslash first. An absolute path stays as it is; of a relative one
// each ".\" is dropped and each "..\" takes a folder off the base. Only leading dots are looked at:
// "a\..\b" is not shortened, and a name that begins with a dot behind the leading steps is
// refused, deliberately. Steps are taken from left to right without looking back; memory is a few
// strings of the length of the path.
#include <quarnfc/string_utils.h>

#include <cstddef>
#include <cstring>

#include "core/memory/memory.h"

namespace {

constexpr char kBackslash = '\\';

// The folder in the form every join starts from: backslashes only, exactly one at the end.
CQNString PreparedBase(const CQNString& base) {
  CQNString prepared = base;
  prepared.Replace('/', kBackslash);
  prepared.TrimRight(kBackslash);
  prepared += kBackslash;
  return prepared;
}

bool IsAbsolute(const CQNString& path) {
  // From the start, where a character begins; a search from byte 1 could start inside one.
  return std::strncmp(path, "\\\\", 2) == 0 || path.ReverseFind(':') > 0;
}

// Cuts the last folder off a prepared base; false when there is none to cut off.
bool GoUp(CQNString& base) {
  base.TrimRight(kBackslash);
  const int last = base.ReverseFind(kBackslash);
  if (last < 0) return false;
  base = base.Left(last + 1);
  return true;
}

bool StartsWith(const char* text, const char* prefix) {
  return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// Resolves the leading ".\" and "..\" of a path against the base. rest is moved behind what was
// resolved; false when a further step is not possible.
bool ResolveDots(CQNString& base, const char*& rest) {
  while (*rest == '.') {
    if (StartsWith(rest, ".\\")) {
      rest += 2;
    } else if (StartsWith(rest, "..\\")) {
      rest += 3;
      if (!GoUp(base)) return false;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

bool qnUnionPathEx(CQNString& base, CQNString& path) {
  CQNString folder = PreparedBase(base);
  path.Trim();
  if (path.IsEmpty()) {
    path = folder;
    return true;
  }
  path.Replace('/', kBackslash);
  if (path.GetLength() == 1) {
    path.TrimLeft(kBackslash);
    path = folder + path;
    return true;
  }
  if (IsAbsolute(path)) return true;

  path.TrimLeft(kBackslash);
  const CQNString whole = path;
  const char* rest = whole;
  const bool resolved = ResolveDots(folder, rest);
  path = resolved ? folder + rest : CQNString(rest);
  return resolved;
}

char* qnUnionPath(const char* base, const char* path) {
  if (base == nullptr || path == nullptr) return nullptr;
  CQNString folder = base;
  CQNString joined = path;
  return qnUnionPathEx(folder, joined) ? joined.AllocANSIString() : nullptr;
}

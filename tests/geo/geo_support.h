// SPDX-License-Identifier: MIT
// What the tests of the coordinate systems share.
#ifndef QUARNFC_TESTS_GEO_GEO_SUPPORT_H_
#define QUARNFC_TESTS_GEO_GEO_SUPPORT_H_

#include <quarnfc/quarnfc.h>

#include <array>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/caller_buffer.h"

namespace geo_test {

using Geo = CQNGeoCoordinateSystem;
using Pro = CQNProCoordinateSystem;

using Text = quarnfc_test::CallerBuffer<char>;
using WideText = quarnfc_test::CallerBuffer<wchar_t>;

// The fields of a system by position, as a host that copies it bit for bit sees them.
inline std::array<double, 16> Fields(const Geo& system) {
  std::array<double, 16> fields;
  static_assert(sizeof fields == sizeof system);
  std::memcpy(fields.data(), &system, sizeof fields);
  return fields;
}

inline std::array<double, 20> Fields(const Pro& system) {
  std::array<double, 20> fields;
  static_assert(sizeof fields == sizeof system);
  std::memcpy(fields.data(), &system, sizeof fields);
  return fields;
}

template <class System>
bool SameBits(const System& left, const System& right) {
  return std::memcmp(static_cast<const void*>(&left), static_cast<const void*>(&right),
                     sizeof left) == 0;
}

template <class System>
std::string WktOf(const System& system) {
  return Text(system.CreateWKT()).get();
}

inline std::vector<wchar_t> ToWide(const char* ansi) {
  const int count = QNStringUtils::Ansi2Unicode(ansi, nullptr, 0);
  std::vector<wchar_t> wide(static_cast<std::size_t>(count) + 1);
  QNStringUtils::Ansi2Unicode(ansi, wide.data(), count);
  return wide;
}

inline std::string ToAnsi(const wchar_t* wide) {
  const int count = QNStringUtils::Unicode2Ansi(wide, nullptr, 0);
  std::vector<char> ansi(static_cast<std::size_t>(count) + 1);
  QNStringUtils::Unicode2Ansi(wide, ansi.data(), count);
  return ansi.data();
}

// The message of a refused text through the 8-bit form, or "accepted".
template <class System>
std::string ReadWkt(System& system, const char* wkt) {
  char* message = nullptr;
  if (system.SetFromWKTA(wkt, &message)) return message == nullptr ? "accepted" : "message left";
  const Text owned(message);
  return message == nullptr ? "no message" : message;
}

// The same through the wide form.
template <class System>
std::string ReadWideWkt(System& system, const char* wkt) {
  wchar_t* message = nullptr;
  if (system.SetFromWKTW(ToWide(wkt).data(), &message)) {
    return message == nullptr ? "accepted" : "message left";
  }
  const WideText owned(message);
  return message == nullptr ? "no message" : ToAnsi(message);
}

// A message with the token in the place of its %s.
inline std::string Formatted(const char* message, const std::string& token) {
  std::string text = message;
  return text.replace(text.find("%s"), 2, token);
}

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

}  // namespace geo_test

#endif  // QUARNFC_TESTS_GEO_GEO_SUPPORT_H_

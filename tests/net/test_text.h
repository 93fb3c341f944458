// SPDX-License-Identifier: MIT
// Small helpers of the HTTP client's tests.
#ifndef QUARNFC_TESTS_NET_TEST_TEXT_H_
#define QUARNFC_TESTS_NET_TEST_TEXT_H_

#include <quarnfc/internet_exception.h>
#include <quarnfc/internet_file.h>
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>

#include "platform/internet.h"
#include "tests/platform/wine.h"

inline std::string TextOf(const CQNString& text) {
  return std::string(static_cast<const char*>(text), static_cast<size_t>(text.GetLength()));
}

// What is left of a response, read in pieces of at most piece bytes.
inline std::string ReadAll(CQNInternetFile& file, unsigned int piece = 4096) {
  std::string all;
  std::string bytes(piece, '\0');
  while (const unsigned int count = file.Read(bytes.data(), piece)) all.append(bytes, 0, count);
  return all;
}

// What an action throws: the exception's code and context, or kNothingThrown.
struct Thrown {
  unsigned int code;
  unsigned __int64 context;

  bool operator==(const Thrown& other) const {
    return code == other.code && context == other.context;
  }
};

inline std::ostream& operator<<(std::ostream& out, const Thrown& thrown) {
  return out << "code " << thrown.code << " context " << thrown.context;
}

constexpr Thrown kNothingThrown = {0xFFFFFFFF, 0};

template <class Action>
Thrown ThrownBy(Action action) {
  try {
    action();
  } catch (CQNInternetException* exception) {
    const Thrown thrown = {exception->GetErrorCode(), exception->GetContext()};
    delete exception;
    return thrown;
  }
  return kNothingThrown;
}

inline bool UnderWine() { return quarnfc_test::RunsUnderWine(); }

// Skips a test of documented behaviour that Wine does not show.
#define SKIP_UNDER_WINE(reason) \
  if (UnderWine()) GTEST_SKIP() << "Wine: " << reason

#endif  // QUARNFC_TESTS_NET_TEST_TEXT_H_

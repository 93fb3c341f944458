// SPDX-License-Identifier: MIT
// Text and errors of the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/base.h>

#include <string>

#include "tests/c/results.h"

namespace {

using c_results::Error;
using c_results::Taken;

constexpr const char* kRefused =
    "5: Quarn: the text is not valid or has characters that the code page lacks";

struct Pair {
  const char* utf8;
  const char* ansi;
};

constexpr Pair kTexts[] = {
    {"", ""},
    {"plain", "plain"},
    {"\xE5\x8C\x97\xE4\xBA\xAC", "\xB1\xB1\xBE\xA9"},  // Beijing
    {"a\xE5\x8C\x97z", "a\xB1\xB1z"},
};

}  // namespace

TEST(CInterfaceText, GoesBetweenUtf8AndTheCodePage) {
  for (const Pair& pair : kTexts) {
    Error error;
    EXPECT_EQ(Taken(qncAnsiFromUtf8(pair.utf8, error.Out())), pair.ansi);
    EXPECT_EQ(error.Text(), "");
    EXPECT_EQ(Taken(qncUtf8FromAnsi(pair.ansi, error.Out())), pair.utf8);
    EXPECT_EQ(error.Text(), "");
  }
}

TEST(CInterfaceText, WhatTheCodePageCannotSayIsRefusedAndNotChanged) {
  for (const char* utf8 : {"\xF0\x9F\x98\x80", "a\xC3\xA3", "\xFF", "cut \xE5\x8C"}) {
    Error error;
    EXPECT_EQ(Taken(qncAnsiFromUtf8(utf8, error.Out())), "(null)") << utf8;
    EXPECT_EQ(error.Text(), kRefused) << utf8;
  }
}

TEST(CInterfaceText, NullIsAnArgumentError) {
  Error error;
  EXPECT_EQ(qncAnsiFromUtf8(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncUtf8FromAnsi(nullptr, nullptr), nullptr);
}

TEST(CInterfaceErrors, SuccessClearsTheOutArgument) {
  Error error;
  CQNObject** out = error.Out();
  *out = nullptr;
  qnFreeMem(qncAnsiFromUtf8(nullptr, out));
  CQNObject* first = *out;
  EXPECT_NE(first, nullptr);
  qnFreeMem(qncAnsiFromUtf8("a", out));
  EXPECT_EQ(*out, nullptr);
  qnCloseHandle(first);
}

TEST(CInterfaceErrors, NullHandleHasNoCodeAndNoMessage) {
  EXPECT_EQ(qncErrorCode(nullptr), QNC_ERROR_NONE);
  EXPECT_EQ(qncErrorMessage(nullptr), nullptr);
}

TEST(CInterface, TellsItsVersion) { EXPECT_EQ(qncInterfaceVersion(), 4); }

// SPDX-License-Identifier: MIT
#include "platform/internet_error_text.h"

#include <gtest/gtest.h>

namespace quarnfc::platform {
namespace {

TEST(InternetErrorText, IsThereForCodesOfTheInternetFunctionsAndOfTheSystem) {
  for (const unsigned int code : {12002u, 12007u, 12029u, 12030u, 2u, 5u, 87u}) {
    std::string text;
    EXPECT_TRUE(InternetErrorText(code, text)) << code;
    EXPECT_FALSE(text.empty()) << code;
  }
}

TEST(InternetErrorText, UnknownCodeLeavesTheTextAlone) {
  for (const unsigned int code : {0x20000001u, 0xFFFFFFFFu}) {
    std::string text = "as it was";
    EXPECT_FALSE(InternetErrorText(code, text)) << code;
    EXPECT_EQ("as it was", text);
  }
}

}  // namespace
}  // namespace quarnfc::platform

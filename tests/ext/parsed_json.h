// SPDX-License-Identifier: MIT
#ifndef QUARNFC_TESTS_EXT_PARSED_JSON_H_
#define QUARNFC_TESTS_EXT_PARSED_JSON_H_

#include <gtest/gtest.h>
#include <quarnfc/ext/json_text.h>

#include <string>

namespace json_text_test {

// The document of a strict text that must be accepted.
inline quarnfc::ext::JsonText Parsed(const std::string& text) {
  quarnfc::ext::JsonText json;
  quarnfc::ext::JsonTextError error;
  EXPECT_TRUE(json.Parse(text, &error)) << text << ": " << error.Message();
  return json;
}

}  // namespace json_text_test

#endif  // QUARNFC_TESTS_EXT_PARSED_JSON_H_

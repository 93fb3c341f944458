// SPDX-License-Identifier: MIT
// JSON documents of the flat C interface from strict text and to it.
#include <gtest/gtest.h>

#include <quarnfc/c/json.h>

#include <limits>
#include <string>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

using c_results::Document;
using c_results::Error;
using c_results::Taken;

Document Load(const std::string& text, size_t* offset = nullptr, CQNObject** error = nullptr) {
  return Document(qncJsonLoadStrict(text.data(), text.size(), offset, error));
}

}  // namespace

TEST(CInterfaceStrictJson, TextsAndNumbersComeBackAsTheyAre) {
  // An escape, a Chinese character, a number that has no short decimal form in the lenient writer.
  const std::string text = "{\"a\":\"\\u5317\\n\",\"n\":[0.1,1e300,-7],\"t\":true,\"z\":null}";
  const Document document = Load("\xEF\xBB\xBF " + text);
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(Taken(qncJsonText(qncJsonFind(document.get(), "a"), nullptr)), "\xE5\x8C\x97\n");
  EXPECT_EQ(Taken(qncJsonWriteStrict(document.get(), 0, nullptr)),
            "{\"a\":\"\xE5\x8C\x97\\n\",\"n\":[0.1,1e+300,-7],\"t\":true,\"z\":null}");
  EXPECT_EQ(Taken(qncJsonWriteStrict(Load("{\"a\":[1]}").get(), 1, nullptr)),
            "{\n  \"a\": [\n    1\n  ]\n}");
}

TEST(CInterfaceStrictJson, WhatIsRefusedTellsPlaceAndReason) {
  struct Case {
    const char* text;
    size_t offset;
    const char* start;  // of the message
  };
  const Case cases[] = {
      {"{\"a\":1,}", 7, "5: Quarn: line 1, column 8: "},
      {"[1,\n\"\xF0\x9F\x98\x80\"]", 4, "5: Quarn: line 2, column 1: "},
      {"", 0, "5: Quarn: line 1, column 1: "},
  };
  for (const Case& c : cases) {
    Error error;
    size_t offset = 99;
    EXPECT_EQ(Load(c.text, &offset, error.Out()), nullptr) << c.text;
    EXPECT_EQ(offset, c.offset) << c.text;
    EXPECT_EQ(error.Text().find(c.start), 0u) << error.Text();
  }
}

TEST(CInterfaceStrictJson, WhatJsonCannotSayIsNotWritten) {
  const Document document = Load("{}");
  ASSERT_EQ(qncJsonSetNumber(document.get(), "a", std::numeric_limits<double>::infinity(), nullptr),
            1);
  Error error;
  EXPECT_EQ(qncJsonWriteStrict(document.get(), 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "5: Quarn: a value cannot be written as JSON");
}

TEST(CInterfaceStrictJson, NullIsAnArgumentError) {
  Error error;
  EXPECT_EQ(qncJsonLoadStrict(nullptr, 0, nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncJsonWriteStrict(nullptr, 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

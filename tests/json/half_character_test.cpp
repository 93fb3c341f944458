// SPDX-License-Identifier: MIT
// UTF-8 documents of texts that hold half a character.
#include <gtest/gtest.h>
#include <quarnfc/error_json.h>
#include <quarnfc/json_object.h>
#include <quarnfc/plain.h>

#include <string>

namespace {

std::string Utf8Of(const char* text) {
  CMyJsonObj document;
  document.AddItem("k", text);
  char* utf8 = document.CreateUTF8Json(false);
  std::string result = utf8;
  qnFreeMem(utf8);
  return result;
}

TEST(HalfCharacter, BecomesAQuestionMarkAndTheAsciiByteBehindItStays) {
  const struct {
    const char* text;
    const char* utf8;
  } kCases[] = {
      {"\xB0", R"({"k":"?"})"},
      {"a\xD6\xD0\xB0", "{\"k\":\"a\xE4\xB8\xAD?\"}"},
      {"\xB0 b", R"({"k":"? b"})"},
      {"\xB0\x31\xB0,\xD6\xD0", "{\"k\":\"?1?,\xE4\xB8\xAD\"}"},
      {"\xD6\xD0\x95\x5C", "{\"k\":\"\xE4\xB8\xAD\xE6\x98\x9E\\\"}"},  // well formed: as it stands
  };
  for (const auto& c : kCases) EXPECT_EQ(Utf8Of(c.text), c.utf8);
}

TEST(HalfCharacter, AtTheEndOfASnippetLeavesTheErrorDocumentReadable) {
  std::string text = "{\"a\" 1";
  for (int i = 0; i < 60; ++i) text += "\xD6\xD0";
  text += "}";
  CMyJsonObj broken;
  ASSERT_FALSE(broken.Load(text.c_str()));
  char* utf8 = QNErrorUtils::CreateErrorUTF8JsonByHandle(
      QNErrorUtils::CreateError(CQNObject::eErrInvalidData, broken.GetErrMsg()));
  CMyJsonObj document;
  EXPECT_TRUE(document.Load(utf8)) << utf8;
  qnFreeMem(utf8);
}

}  // namespace

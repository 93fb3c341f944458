// SPDX-License-Identifier: MIT
// Text in other encodings through the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/encoded_text.h>

#include <cstddef>
#include <string>

#include "tests/c/results.h"

namespace {

using c_results::Error;

// "a", "bei" of Beijing, a zero character, in each encoding.
const std::string kUtf8("a\xE5\x8C\x97\0", 5);
const std::string kUtf16Le("a\0\x17\x53\0\0", 6);
const std::string kUtf16Be("\0a\x53\x17\0\0", 6);
const std::string kAnsi("a\xB1\xB1\0", 4);

struct Form {
  int encoding;
  std::string bytes;
  std::string mark;
};

const Form kForms[] = {{QNC_ENCODING_UTF8, kUtf8, "\xEF\xBB\xBF"},
                       {QNC_ENCODING_UTF16_LE, kUtf16Le, "\xFF\xFE"},
                       {QNC_ENCODING_UTF16_BE, kUtf16Be, "\xFE\xFF"},
                       {QNC_ENCODING_ANSI, kAnsi, ""}};

std::string From(const std::string& bytes, int encoding, size_t* offset = nullptr,
                 CQNObject** error = nullptr) {
  size_t size = 0;
  char* text = qncTextFromEncoding(bytes.data(), bytes.size(), encoding, &size, offset, error);
  const std::string copy = text == nullptr ? "(null)" : std::string(text, size);
  EXPECT_TRUE(text == nullptr || text[size] == '\0');
  qnFreeMem(text);
  return copy;
}

std::string To(const std::string& text, int encoding, size_t* offset = nullptr,
               CQNObject** error = nullptr) {
  size_t size = 0;
  unsigned char* bytes =
      qncTextToEncoding(text.data(), text.size(), encoding, &size, offset, error);
  const std::string copy =
      bytes == nullptr ? "(null)" : std::string(reinterpret_cast<char*>(bytes), size);
  EXPECT_TRUE(bytes == nullptr || bytes[size] == '\0');
  qnFreeMem(bytes);
  return copy;
}

}  // namespace

TEST(CInterfaceEncodedText, EveryEncodingIsFoundAndReadAndWritten) {
  for (const Form& form : kForms) {
    const std::string marked = form.mark + form.bytes;
    EXPECT_EQ(qncFindEncoding(marked.data(), marked.size()), form.encoding);
    EXPECT_EQ(qncFindEncoding(form.bytes.data(), form.bytes.size()), form.encoding);
    EXPECT_EQ(From(marked, QNC_ENCODING_ANY), kUtf8) << form.encoding;
    EXPECT_EQ(From(form.bytes, QNC_ENCODING_ANY), kUtf8) << form.encoding;
    EXPECT_EQ(From(form.bytes, form.encoding), kUtf8) << form.encoding;
    EXPECT_EQ(To(kUtf8, form.encoding), form.bytes) << form.encoding;
  }
}

TEST(CInterfaceEncodedText, NoBytesAreAnEmptyText) {
  EXPECT_EQ(qncFindEncoding(nullptr, 0), QNC_ENCODING_UTF8);
  char* text = qncTextFromEncoding(nullptr, 0, QNC_ENCODING_ANY, nullptr, nullptr, nullptr);
  EXPECT_STREQ(text, "");
  qnFreeMem(text);
  EXPECT_EQ(To("", QNC_ENCODING_ANSI), "");
}

TEST(CInterfaceEncodedText, BytesThatAreNoTextAreRefusedWithTheirPlace) {
  struct Case {
    std::string bytes;
    int encoding;
    size_t offset;
  };
  const Case cases[] = {{"ab\xFF", QNC_ENCODING_UTF8, 2},
                        {"\xEF\xBB\xBF\x61\xFF", QNC_ENCODING_ANY, 4},
                        {"a\xB1", QNC_ENCODING_ANSI, 1},
                        {std::string("a\0b", 3), QNC_ENCODING_UTF16_LE, 2},
                        {std::string("a\0\0\xD8z\0", 6), QNC_ENCODING_UTF16_LE, 2}};
  for (const Case& c : cases) {
    Error error;
    size_t offset = 99;
    EXPECT_EQ(From(c.bytes, c.encoding, &offset, error.Out()), "(null)") << c.bytes;
    EXPECT_EQ(offset, c.offset) << c.bytes;
    EXPECT_EQ(error.Text(), "5: Quarn: the bytes are no text in this encoding");
  }
}

TEST(CInterfaceEncodedText, CharactersThatAnEncodingLacksAreRefusedWithTheirPlace) {
  Error error;
  size_t offset = 99;
  EXPECT_EQ(To("a\xF0\x9F\x98\x80", QNC_ENCODING_ANSI, &offset, error.Out()), "(null)");
  EXPECT_EQ(offset, 1u);
  EXPECT_EQ(error.Text(), "5: Quarn: a character cannot be had in this encoding");
  EXPECT_EQ(To("ab\xC3", QNC_ENCODING_UTF16_BE, &offset, error.Out()), "(null)");
  EXPECT_EQ(offset, 2u);
  EXPECT_EQ(To("\xF0\x9F\x98\x80", QNC_ENCODING_UTF16_BE), std::string("\xD8\x3D\xDE\0", 4));
}

TEST(CInterfaceEncodedText, AnEncodingThatThereIsNotIsAnArgumentError) {
  Error error;
  for (const int encoding : {-1, 5}) {
    EXPECT_EQ(From("a", encoding, nullptr, error.Out()), "(null)");
    EXPECT_EQ(error.Text(), "87: Quarn: there is no such encoding");
  }
  EXPECT_EQ(To("a", QNC_ENCODING_ANY, nullptr, error.Out()), "(null)");
  EXPECT_EQ(error.Text(), "87: Quarn: there is no such encoding");
}

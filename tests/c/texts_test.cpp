// SPDX-License-Identifier: MIT
// Strict JSON and CSV with options through the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/base.h>
#include <quarnfc/c/csv_text.h>
#include <quarnfc/c/encoded_text.h>
#include <quarnfc/c/json_text.h>

#include <cstring>
#include <string>
#include <string_view>

#include "tests/c/handles.h"
#include "tests/c/results.h"
#include "tests/support/temp_file.h"

namespace {

using c_results::CsvText;
using c_results::Error;
using c_results::JsonText;
using c_results::Taken;

JsonText Strict(std::string_view text) {
  return JsonText(qncJsonTextParse(text.data(), text.size(), nullptr, nullptr));
}

CsvText Opened(std::string_view text, char delimiter) {
  return CsvText(qncCsvTextFromMemory(text.data(), text.size(), delimiter, nullptr));
}

// The fields of the row last read with '|' behind each.
std::string Fields(const CsvText& csv) {
  std::string joined;
  for (int i = 0; i < qncCsvTextCount(csv.get()); ++i) {
    size_t size = 0;
    const char* field = qncCsvTextField(csv.get(), i, &size);
    joined += std::string(field, size) + "|";
  }
  return joined;
}

}  // namespace

TEST(CInterfaceUtf8, NamesTheFirstByteThatIsNone) {
  size_t offset = 77;
  EXPECT_EQ(qncIsUtf8("\xE5\x8C\x97", 3, &offset), 1);
  EXPECT_EQ(qncIsUtf8(nullptr, 3, &offset), 1);
  EXPECT_EQ(offset, 77u);
  EXPECT_EQ(qncIsUtf8("ab\xE5\x8C", 4, &offset), 0);
  EXPECT_EQ(offset, 2u);
  EXPECT_EQ(qncIsUtf8("\xFF", 1, nullptr), 0);
}

TEST(CInterfaceJsonText, ReadsByPointersWithoutConvertingAnything) {
  const JsonText json = Strict("{\"a\":[1.50,\"\\u5317\\u0000x\"],\"b\":{},\"c\":null,\"d\":true}");
  ASSERT_NE(json, nullptr);
  EXPECT_EQ(qncJsonTextType(json.get(), ""), QNC_JSON_OBJECT);
  EXPECT_EQ(qncJsonTextType(json.get(), "/a"), QNC_JSON_ARRAY);
  EXPECT_EQ(qncJsonTextType(json.get(), "/a/0"), QNC_JSON_NUMBER);
  EXPECT_EQ(qncJsonTextType(json.get(), "/a/1"), QNC_JSON_TEXT);
  EXPECT_EQ(qncJsonTextType(json.get(), "/c"), QNC_JSON_NULL);
  EXPECT_EQ(qncJsonTextType(json.get(), "/d"), QNC_JSON_BOOL);
  EXPECT_EQ(qncJsonTextType(json.get(), "/e"), -1);
  EXPECT_EQ(qncJsonTextType(nullptr, ""), -1);
  EXPECT_EQ(qncJsonTextCount(json.get(), ""), 4);
  EXPECT_EQ(qncJsonTextCount(json.get(), "/a"), 2);
  EXPECT_EQ(qncJsonTextCount(json.get(), "/a/0"), 0);
  EXPECT_EQ(Taken(qncJsonTextSource(json.get(), "/a/0", nullptr)), "1.50");
  double number = 0;
  EXPECT_EQ(qncJsonTextNumber(json.get(), "/a/0", &number), 1);
  EXPECT_EQ(number, 1.5);
  EXPECT_EQ(qncJsonTextNumber(json.get(), "/c", &number), 0);
  size_t size = 0;
  char* text = qncJsonTextString(json.get(), "/a/1", &size, nullptr);
  EXPECT_EQ(std::string(text, size), std::string("\xE5\x8C\x97\0x", 5));
  qnFreeMem(text);
  Error error;
  EXPECT_EQ(qncJsonTextString(json.get(), "/a/0", &size, error.Out()), nullptr);
  EXPECT_EQ(qncJsonTextSource(json.get(), "/e", error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "");
}

TEST(CInterfaceJsonText, EditChangesTheBytesOfOneValueAlone) {
  const JsonText json = Strict("{ \"big\" : 12345678901234567890 ,\n  \"port\":8080 }");
  Error error;
  EXPECT_EQ(qncJsonTextReplace(json.get(), "/port", "9090", error.Out()), 1);
  EXPECT_EQ(Taken(qncJsonTextWrite(json.get(), nullptr)),
            "{ \"big\" : 12345678901234567890 ,\n  \"port\":9090 }");
  EXPECT_EQ(qncJsonTextReplace(json.get(), "/port", "[1,]", error.Out()), 0);
  EXPECT_EQ(error.Text(), "5: Quarn: line 1, column 4: a value is expected");
  EXPECT_EQ(qncJsonTextReplace(json.get(), "/none", "1", error.Out()), 0);
  EXPECT_EQ(error.Text(), "2: Quarn: there is no value at the pointer");
  EXPECT_EQ(Taken(qncJsonTextSource(json.get(), "/port", nullptr)), "9090");
}

TEST(CInterfaceJsonText, AddedValuesGoWherePointersLead) {
  struct Case {
    const char* pointer;
    const char* expected;
  };
  const Case cases[] = {
      {"/c", "{\"a\": [1.50, 2], \"b\": {}, \"c\": true}"},
      {"/~1~0", "{\"a\": [1.50, 2], \"b\": {}, \"/~\": true}"},
      {"/b/", "{\"a\": [1.50, 2], \"b\": {\"\": true}}"},
      {"/b", "{\"a\": [1.50, 2], \"b\": true}"},
      {"/a/0", "{\"a\": [true, 1.50, 2], \"b\": {}}"},
      {"/a/1", "{\"a\": [1.50, true, 2], \"b\": {}}"},
      {"/a/2", "{\"a\": [1.50, 2, true], \"b\": {}}"},
      {"/a/-", "{\"a\": [1.50, 2, true], \"b\": {}}"},
      {"", "true"},
  };
  for (const Case& c : cases) {
    const JsonText json = Strict("{\"a\": [1.50, 2], \"b\": {}}");
    EXPECT_EQ(qncJsonTextAdd(json.get(), c.pointer, "true", nullptr), 1) << c.pointer;
    EXPECT_EQ(Taken(qncJsonTextWrite(json.get(), nullptr)), c.expected) << c.pointer;
  }
}

TEST(CInterfaceJsonText, RemovedValuesTakeOneCommaWithThem) {
  struct Case {
    const char* pointer;
    const char* expected;
  };
  const Case cases[] = {{"/a", "{\"b\": 1e2 , \"c\": [1, 2]}"},
                        {"/b", "{\"a\": 0 , \"c\": [1, 2], \"a\": 3}"},
                        {"/c/0", "{\"a\": 0, \"b\": 1e2 , \"c\": [2], \"a\": 3}"},
                        {"/c/1", "{\"a\": 0, \"b\": 1e2 , \"c\": [1], \"a\": 3}"}};
  for (const Case& c : cases) {
    const JsonText json = Strict("{\"a\": 0, \"b\": 1e2 , \"c\": [1, 2], \"a\": 3}");
    EXPECT_EQ(qncJsonTextRemove(json.get(), c.pointer, nullptr), 1) << c.pointer;
    EXPECT_EQ(Taken(qncJsonTextWrite(json.get(), nullptr)), c.expected) << c.pointer;
  }
}

TEST(CInterfaceJsonText, RefusedEditsLeaveTheDocumentAsItIs) {
  const std::string text = "{\"a\": [1, 2], \"b\": 0}";
  const JsonText json = Strict(text);
  const auto added = [&](const char* pointer, const char* value) {
    Error error;
    EXPECT_EQ(qncJsonTextAdd(json.get(), pointer, value, error.Out()), 0);
    return error.Text();
  };
  const std::string missing = "2: Quarn: there is no value at the pointer";
  const std::string no_place = "2: Quarn: the pointer leads to no place in an object or array";
  EXPECT_EQ(added("/x/y", "1"), missing);
  EXPECT_EQ(added("/a/3", "1"), no_place);
  EXPECT_EQ(added("/a/01", "1"), no_place);
  EXPECT_EQ(added("/a/x", "1"), no_place);
  EXPECT_EQ(added("/b/x", "1"), no_place);
  EXPECT_EQ(added("a", "1"), "87: Quarn: the text is no JSON pointer");
  EXPECT_EQ(added("/~2", "1"), "87: Quarn: the text is no JSON pointer");
  EXPECT_EQ(added("/c", "[1,]"), "5: Quarn: line 1, column 4: a value is expected");
  EXPECT_EQ(added("/\xFF", "1"), "5: Quarn: the key is not UTF-8");
  EXPECT_EQ(added(nullptr, "1"), "87: Quarn: an argument is null");
  EXPECT_EQ(added("/c", nullptr), "87: Quarn: an argument is null");
  const auto removed = [&](const char* pointer) {
    Error error;
    EXPECT_EQ(qncJsonTextRemove(json.get(), pointer, error.Out()), 0);
    return error.Text();
  };
  EXPECT_EQ(removed("/x"), missing);
  EXPECT_EQ(removed("/a/2"), missing);
  EXPECT_EQ(removed("/a/-"), missing);
  EXPECT_EQ(removed("/b/x"), missing);
  EXPECT_EQ(removed(""), "87: Quarn: the whole document cannot be removed");
  EXPECT_EQ(removed("a"), "87: Quarn: the text is no JSON pointer");
  EXPECT_EQ(removed(nullptr), "87: Quarn: an argument is null");
  EXPECT_EQ(Taken(qncJsonTextWrite(json.get(), nullptr)), text);
  EXPECT_EQ(qncJsonTextAdd(nullptr, "/a", "1", nullptr), 0);
  EXPECT_EQ(qncJsonTextRemove(nullptr, "/a", nullptr), 0);
}

TEST(CInterfaceJsonText, RefusedTextTellsPlaceAndReason) {
  Error error;
  size_t offset = 0;
  const std::string text = "{\n \"a\": 01}";
  EXPECT_EQ(qncJsonTextParse(text.data(), text.size(), &offset, error.Out()), nullptr);
  EXPECT_EQ(offset, text.find('0'));
  EXPECT_EQ(error.Text(), "5: Quarn: line 2, column 7: this is no number of JSON");
  EXPECT_EQ(qncJsonTextParse(nullptr, 3, &offset, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

TEST(CInterfaceCsvText, ReadsAnyDelimiterAndLineEndsInQuotes) {
  const CsvText csv = Opened(
      "\xEF\xBB\xBF"
      "a;\"b;\r\nc\"\r\n\r\n1,5;\"say \"\"hi\"\"\"\n",
      ';');
  ASSERT_NE(csv, nullptr);
  EXPECT_EQ(qncCsvTextLine(csv.get()), 0u);
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Fields(csv), "a|b;\r\nc|");
  EXPECT_EQ(qncCsvTextLine(csv.get()), 1u);
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Fields(csv), "1,5|say \"hi\"|");
  EXPECT_EQ(qncCsvTextLine(csv.get()), 4u);
  EXPECT_EQ(qncCsvTextField(csv.get(), 2, nullptr), nullptr);
  EXPECT_EQ(qncCsvTextField(csv.get(), -1, nullptr), nullptr);
  Error error;
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), 0);
  EXPECT_EQ(error.Text(), "");
  EXPECT_EQ(qncCsvTextCount(csv.get()), 0);
}

TEST(CInterfaceCsvText, FieldsAreFoundByTheirNames) {
  const CsvText csv = Opened("id;\xE5\x90\x8D;id;\n", ';');
  Error error;
  EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), "id", error.Out()), -1);  // no row yet
  EXPECT_EQ(error.Text(), "5: Quarn: not exactly one field has this name");
  ASSERT_EQ(qncCsvTextNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), "\xE5\x90\x8D", error.Out()), 1);
  EXPECT_EQ(error.Text(), "");
  EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), "", nullptr), 3);
  for (const char* name : {"id", "ID", "\xE5\x90"}) {
    EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), name, error.Out()), -1) << name;
    EXPECT_EQ(error.Text(), "5: Quarn: not exactly one field has this name") << name;
  }
  EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), nullptr, error.Out()), -1);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncCsvTextFieldIndex(nullptr, "id", nullptr), -1);
}

TEST(CInterfaceCsvText, FilesLongerThanAPieceKeepEveryRow) {
  std::string text = "\xEF\xBB\xBF";
  for (int i = 0; i < 30000; ++i) text += std::to_string(i) + "\tvalue\n";
  const quarnfc_test::TempFile file(text);
  const CsvText csv(qncCsvTextOpen(file.path(), '\t', nullptr));
  ASSERT_NE(csv, nullptr);
  int rows = 0;
  while (qncCsvTextNextRow(csv.get(), nullptr) == 1) {
    ASSERT_EQ(Fields(csv), std::to_string(rows) + "|value|");
    ++rows;
  }
  EXPECT_EQ(rows, 30000);
}

TEST(CInterfaceCsvText, FieldsAreUtf8WhateverEncodingTheFileIsIn) {
  const struct {
    std::string_view bytes;
    int encoding;
  } files[] = {
      {"\xE5\x90\x8D;2\n", QNC_ENCODING_ANY},
      {"\xEF\xBB\xBF\xE5\x90\x8D;2\n", QNC_ENCODING_UTF8},
      {"\xC3\xFB;2\n", QNC_ENCODING_ANY},
      {"\xC3\xFB;2\n", QNC_ENCODING_ANSI},
      {{"\xFF\xFE\x0D\x54;\0002\0\n\0", 10}, QNC_ENCODING_ANY},
      {{"\x54\x0D\0;\0002\0\n", 8}, QNC_ENCODING_UTF16_BE},
      {{"\x0D\x54;\0002\0\n\0", 8}, QNC_ENCODING_UTF16_LE},
  };
  for (const auto& [bytes, encoding] : files) {
    const quarnfc_test::TempFile file{std::string(bytes)};
    Error error;
    const CsvText csv(qncCsvTextOpenEncoded(file.path(), ';', encoding, error.Out()));
    ASSERT_NE(csv, nullptr) << error.Text();
    EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), 1) << error.Text();
    EXPECT_EQ(Fields(csv), "\xE5\x90\x8D|2|");
    EXPECT_EQ(qncCsvTextFieldIndex(csv.get(), "\xE5\x90\x8D", nullptr), 0);
    EXPECT_EQ(qncCsvTextLine(csv.get()), 1u);
    EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), 0);
    EXPECT_EQ(error.Text(), "");
  }
}

TEST(CInterfaceCsvText, EncodedFilesLongerThanAPieceKeepEveryRow) {
  std::string text;
  for (int i = 0; i < 30000; ++i) text += std::to_string(i) + ",\xC3\xFB\n";
  const quarnfc_test::TempFile file(text);
  const CsvText csv(qncCsvTextOpenEncoded(file.path(), ',', QNC_ENCODING_ANY, nullptr));
  ASSERT_NE(csv, nullptr);
  int rows = 0;
  while (qncCsvTextNextRow(csv.get(), nullptr) == 1) {
    ASSERT_EQ(Fields(csv), std::to_string(rows) + "|\xE5\x90\x8D|");
    ++rows;
  }
  EXPECT_EQ(rows, 30000);
}

TEST(CInterfaceCsvText, NoTextInTheEncodingEndsTheRowsWithAnError) {
  const quarnfc_test::TempFile file("a,b\n1,\xFF\n2,3\n");
  const CsvText csv(qncCsvTextOpenEncoded(file.path(), ',', QNC_ENCODING_UTF8, nullptr));
  ASSERT_NE(csv, nullptr);
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Fields(csv), "a|b|");
  Error error;
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), -1);
    EXPECT_EQ(error.Text(), "5: Quarn: byte 6: there is no text");
    EXPECT_EQ(qncCsvTextCount(csv.get()), 0);
  }
}

TEST(CInterfaceCsvText, WhatCannotBeOpenedInAnEncodingIsAnError) {
  const quarnfc_test::TempFile file("a\n");
  Error error;
  EXPECT_EQ(qncCsvTextOpenEncoded("no-such-folder/file.csv", ',', 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "14: Quarn: the file cannot be opened");
  EXPECT_EQ(qncCsvTextOpenEncoded(nullptr, ',', 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncCsvTextOpenEncoded(file.path(), '"', 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: this byte cannot separate fields");
  for (const int encoding : {-1, 5}) {
    EXPECT_EQ(qncCsvTextOpenEncoded(file.path(), ',', encoding, error.Out()), nullptr);
    EXPECT_EQ(error.Text(), "87: Quarn: there is no such encoding");
  }
}

TEST(CInterfaceCsvText, WhatCannotBeReadIsAnError) {
  Error error;
  const CsvText csv = Opened("a\n\"never closed", ',');
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), 1);
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), error.Out()), -1);
  EXPECT_EQ(error.Text(), "5: Quarn: line 2: a quoted field is not closed");
  EXPECT_EQ(qncCsvTextOpen("no-such-folder/file.csv", ',', error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "14: Quarn: the file cannot be opened");
  for (const char delimiter : {'"', '\n', '\r', ' ', '\0'}) {
    EXPECT_EQ(qncCsvTextFromMemory("a", 1, delimiter, error.Out()), nullptr);
    EXPECT_EQ(error.Text(), "87: Quarn: this byte cannot separate fields");
  }
}

TEST(CInterfaceCsvText, WrittenRowsAreReadBack) {
  const char* fields[] = {"a;b", " lead", "", "say \"hi\"", "two\nlines"};
  const std::string row = Taken(qncCsvTextWriteRow(fields, 5, ';', nullptr));
  EXPECT_EQ(row, "\"a;b\";\" lead\";;\"say \"\"hi\"\"\";\"two\nlines\"");
  const CsvText csv = Opened(row, ';');
  EXPECT_EQ(qncCsvTextNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Fields(csv), "a;b| lead||say \"hi\"|two\nlines|");
  Error error;
  fields[1] = nullptr;
  EXPECT_EQ(qncCsvTextWriteRow(fields, 5, ';', error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

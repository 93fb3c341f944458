// SPDX-License-Identifier: MIT
// Range-for over objects, arrays, collections and rows.
#include <quarnfc/ext/ranges.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/build_paths.h"

namespace quarnfc::ext {
namespace {

TEST(Ranges, MembersComeInTheirOrderAndAreTheObjectsOwn) {
  CMyJsonObj object;
  ASSERT_TRUE(object.Load(R"({"b":1,"a":[2],"c":"x"})"));
  std::string keys;
  for (const JsonMember& member : Members(object)) {
    keys += static_cast<const char*>(member.key);
    CMyJsonValue* own = nullptr;
    ASSERT_TRUE(object.ValueEx(member.key, own, true));
    EXPECT_EQ(member.value, own);
  }
  EXPECT_EQ(keys, "bac");
}

TEST(Ranges, AnEmptyObjectHasNoMembers) {
  const CMyJsonObj object;
  EXPECT_TRUE(Members(object).begin() == Members(object).end());
}

TEST(Ranges, ElementsAreThoseOfAnArrayAndNoneOfAnythingElse) {
  CMyJsonValue array;
  CQNString error;
  ASSERT_TRUE(array.Load("[1,2,3.5]", error));
  double sum = 0;
  for (const CMyJsonValue* element : Elements(array)) sum += element->ValueNumber();
  EXPECT_EQ(sum, 6.5);
  const CMyJsonValue text("abc");
  EXPECT_TRUE(Elements(text).begin() == Elements(text).end());
}

TEST(Ranges, ElementsWorkWithStandardAlgorithms) {
  CMyJsonValue array;
  CQNString error;
  ASSERT_TRUE(array.Load("[1,\"a\",3]", error));
  const auto elements = Elements(array);
  EXPECT_EQ(std::count_if(elements.begin(), elements.end(),
                          [](const CMyJsonValue* value) { return value->IsNumber(); }),
            2);
}

TEST(Ranges, CollectionsGiveItemsTextsAndObjects) {
  CQNCollection numbers;
  numbers.Add(5);
  numbers.Add(7);
  std::vector<unsigned __int64> items;
  for (const unsigned __int64 item : Items(numbers)) items.push_back(item);
  EXPECT_EQ(items, (std::vector<unsigned __int64>{5, 7}));

  CQNStringCollection names;
  names.CloneAdd("a");
  names.CloneAdd(nullptr);
  std::vector<const char*> texts;
  for (const char* text : Texts(names)) texts.push_back(text);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_STREQ(texts[0], "a");
  EXPECT_EQ(texts[1], nullptr);

  CQNObjectCollection objects;
  auto* const object = new CQNObject;
  objects.Add(object);
  for (const CQNObject* item : Objects(objects)) EXPECT_EQ(item, object);
}

TEST(Ranges, RowsGoOnFromWhereTheReaderStandsToTheEnd) {
  CQNCSVFileReader reader;
  ASSERT_TRUE(reader.Open(QUARNFC_DATA "/districts-gbk.csv"));
  std::vector<CQNString> first;
  ASSERT_TRUE(reader.NextRow(first));
  std::size_t rows = 0, fields = 0;
  for (const std::vector<CQNString>& row : Rows(reader)) {
    ++rows;
    fields += row.size();
  }
  EXPECT_GT(rows, 2000u);
  EXPECT_EQ(fields, rows * first.size());
  EXPECT_STREQ(reader.GetLastError(), "");
  EXPECT_FALSE(reader.NextRow(first));
}

TEST(Ranges, AReaderThatIsNotOpenHasNoRowsAndSaysWhy) {
  CQNCSVFileReader reader;
  for (const auto& row : Rows(reader)) ADD_FAILURE() << row.size();
  EXPECT_STRNE(reader.GetLastError(), "");
}

}  // namespace
}  // namespace quarnfc::ext

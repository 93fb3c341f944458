// SPDX-License-Identifier: MIT
// Objects that have the same keys, in one document or in copies, keep one list of them. Nobody can
// tell: what changes in one of them stays as it was in all others.
#include <gtest/gtest.h>
#include <quarnfc/json_object.h>

#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::ObjectPtr;

using Members = std::vector<std::pair<std::string, int>>;

std::string TextOf(const Members& members) {
  std::string text;
  for (const auto& [key, number] : members) {
    text += (text.empty() ? "\"" : ",\"") + key + "\":" + std::to_string(number);
  }
  return "{" + text + "}";
}

int Find(const Members& members, const std::string& key) {
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (members[i].first == key) return static_cast<int>(i);
  }
  return -1;
}

// Changes the object and the members in the same way.
void Change(CMyJsonObj& object, Members& members, const std::string& key, std::uint32_t how) {
  const int found = Find(members, key);
  const int number = static_cast<int>(how);
  if (how % 3 == 0) {
    object.AddItem(key.c_str(), number);
    members.emplace_back(key, number);
  } else if (how % 3 == 1) {
    object.DelItem(key.c_str());
    if (found >= 0) members.erase(members.begin() + found);
  } else {
    object.SetItem(key.c_str(), number, true, false);
    if (found >= 0) members[static_cast<std::size_t>(found)].second = number;
    if (found < 0) members.emplace_back(key, number);
  }
}

std::string KeyOf(std::uint32_t number) { return "key" + std::to_string(number); }

// The members of one of several kinds of objects; one kind has none, one the empty key.
Members MembersOf(std::uint32_t kind) {
  Members members;
  for (std::uint32_t i = 0; i < kind * 7 % 23; ++i)
    members.emplace_back(KeyOf(i), static_cast<int>(i));
  if (kind % 3 == 1) members.emplace_back("", 1);
  return members;
}

}  // namespace

TEST(KeyList, ChangesOfOneObjectReadFromATextLeaveTheOthersAlone) {
  std::mt19937 random(1);
  std::vector<Members> expected;
  std::string text = "[";
  for (std::uint32_t i = 0; i < 300; ++i) {
    expected.push_back(MembersOf(i % 5));
    text += TextOf(expected.back()) + ",";
  }
  const auto value = json_test::Read(text + "]");
  for (int step = 0; step < 3000; ++step) {
    const std::uint32_t place = random() % 300;
    CMyJsonObj& object = *value->ValueArrItem(static_cast<int>(place))->ValueObj();
    Change(object, expected[place], KeyOf(random() % 25), random());
  }
  for (std::uint32_t i = 0; i < 300; ++i) {
    const CMyJsonObj& object = *value->ValueArrItem(static_cast<int>(i))->ValueObj();
    ASSERT_EQ(Compact(object), TextOf(expected[i])) << i;
    int number = -1;
    const int first = Find(expected[i], "key3");
    EXPECT_EQ(object.ValueEx("key3", number, true), first >= 0);
    if (first >= 0) {
      EXPECT_EQ(number, expected[i][static_cast<std::size_t>(first)].second);
    }
  }
}

TEST(KeyList, ACopyAndItsOriginalChangeApart) {
  std::mt19937 random(2);
  for (std::uint32_t round = 0; round < 200; ++round) {
    Members members = MembersOf(round);
    CMyJsonObj object;
    ASSERT_TRUE(object.Load(TextOf(members).c_str()));
    const ObjectPtr clone(object.Clone());
    CMyJsonObj copy;
    copy.CopyFrom(&object);
    Members of_clone = members, of_copy = members;
    for (int step = 0; step < 10; ++step) {
      Change(object, members, KeyOf(random() % 25), random());
      Change(*clone, of_clone, KeyOf(random() % 25), random());
      Change(copy, of_copy, KeyOf(random() % 25), random());
    }
    ASSERT_EQ(Compact(object), TextOf(members));
    ASSERT_EQ(Compact(*clone), TextOf(of_clone));
    ASSERT_EQ(Compact(copy), TextOf(of_copy));
  }
}

TEST(KeyList, AnObjectOutlivesTheOnesItSharesKeysWith) {
  const auto value =
      json_test::Read("[" + json_test::Repeat("{\"first\":1,\"second\":2},", 40) + "]");
  CMyJsonValue* const kept = value->ValueArrItem(39);
  value->RemoveFromArr(39, false);
  const json_test::ValuePtr owned(kept);
  while (value->ValueArrLength() > 0) value->RemoveFromArr(0, true);
  EXPECT_EQ(Compact(*owned), "{\"first\":1,\"second\":2}");
}

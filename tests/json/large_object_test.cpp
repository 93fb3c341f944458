// SPDX-License-Identifier: MIT
// Objects with many members, compared with a list that is searched one by one.
#include <quarnfc/json_object.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/json/json_support.h"

namespace {

// The members in order; the first with a key is the one that counts.
class Model {
 public:
  int Find(const std::string& key) const {
    for (std::size_t i = 0; i < members_.size(); ++i) {
      if (members_[i].first == key) return static_cast<int>(i);
    }
    return -1;
  }

  void Add(const std::string& key, int number) { members_.emplace_back(key, number); }

  void Set(const std::string& key, int number) {
    const int found = Find(key);
    if (found < 0) return Add(key, number);
    members_[static_cast<std::size_t>(found)].second = number;
  }

  void Delete(const std::string& key) {
    const int found = Find(key);
    if (found >= 0) members_.erase(members_.begin() + found);
  }

  int Number(const std::string& key) const {
    const int found = Find(key);
    return found >= 0 ? members_[static_cast<std::size_t>(found)].second : -1;
  }

  std::size_t Size() const { return members_.size(); }

 private:
  std::vector<std::pair<std::string, int>> members_;
};

int NumberIn(const CMyJsonObj& object, const std::string& key) {
  int number = -1;
  object.ValueEx(key.c_str(), number, true);
  return number;
}

// Latin and Chinese keys, some of them prefixes of others.
std::string MixedKey(std::uint32_t number) {
  const std::string digits = std::to_string(number);
  return number % 3 == 0 ? "\xD6\xD0\xB9\xFA" + digits : number % 3 == 1 ? "k" + digits : digits;
}

}  // namespace

TEST(LargeObject, FindsWhatASearchOneByOneFindsAfterAnyChange) {
  for (const std::uint32_t keys : {10u, 40u, 500u}) {
    std::mt19937 random(keys);
    CMyJsonObj object;
    Model model;
    for (int step = 0; step < 4000; ++step) {
      const std::string key = MixedKey(random() % keys);
      switch (random() % 8) {
        case 0:
          object.AddItem(key.c_str(), step);
          model.Add(key, step);
          break;
        case 1:
        case 2:
          object.DelItem(key.c_str());
          model.Delete(key);
          break;
        default:
          ASSERT_TRUE(object.SetItem(key.c_str(), step, true, false));
          model.Set(key, step);
      }
      const std::string wanted = MixedKey(random() % keys);
      ASSERT_EQ(NumberIn(object, wanted), model.Number(wanted)) << wanted << " in step " << step;
      ASSERT_EQ(static_cast<std::size_t>(object.ValueCount()), model.Size());
    }
  }
}

TEST(LargeObject, EachOfManyMembersIsFound) {
  constexpr int kMembers = 100'000;
  CMyJsonObj object;
  for (int i = 0; i < kMembers; ++i) {
    ASSERT_TRUE(object.SetItem(("key" + std::to_string(i)).c_str(), i, true, false));
  }
  for (int i = 0; i < kMembers; ++i) {
    ASSERT_EQ(NumberIn(object, "key" + std::to_string(i)), i);
  }
  EXPECT_EQ(NumberIn(object, "key100000"), -1);
}

TEST(LargeObject, SearchesSeeTheMembersOfTheLastLoadOrCopy) {
  CMyJsonObj object, other;
  for (int i = 0; i < 50; ++i) object.AddItem(MixedKey(static_cast<std::uint32_t>(i)).c_str(), i);
  for (int i = 0; i < 50; ++i) other.AddItem(("other" + std::to_string(i)).c_str(), i);
  EXPECT_EQ(NumberIn(object, MixedKey(7)), 7);
  EXPECT_EQ(NumberIn(other, "other7"), 7);
  object.CopyFrom(&other);
  EXPECT_EQ(NumberIn(object, MixedKey(7)), -1);
  EXPECT_EQ(NumberIn(object, "other9"), 9);
  ASSERT_TRUE(object.Load("{\"only\":3}"));
  EXPECT_EQ(NumberIn(object, "other9"), -1);
  EXPECT_EQ(NumberIn(object, "only"), 3);
}

TEST(LargeObject, AKeyThatEndsInHalfACharacterEqualsTheKeyWithoutIt) {
  for (const int fillers : {0, 30}) {
    CMyJsonObj object;
    for (int i = 0; i < fillers; ++i) object.AddItem(("f" + std::to_string(i)).c_str(), i);
    object.AddItem("whole\xD6", 77);
    EXPECT_EQ(NumberIn(object, "whole"), 77);
    EXPECT_EQ(NumberIn(object, "whole\xD6"), 77);
    EXPECT_EQ(NumberIn(object, "whole\xB9"), 77);
    EXPECT_EQ(NumberIn(object, "whole\xD6\xD0"), -1);
  }
}

TEST(LargeObject, WithoutCaseTheExactKeyIsPreferred) {
  CMyJsonObj object;
  for (int i = 0; i < 40; ++i) object.AddItem(("Key" + std::to_string(i)).c_str(), i);
  object.AddItem("KEY5", 105);
  int number = 0;
  EXPECT_TRUE(object.ValueEx("KEY5", number, false));
  EXPECT_EQ(number, 105);
  EXPECT_TRUE(object.ValueEx("key5", number, false));
  EXPECT_EQ(number, 5);
}

TEST(LargeObject, KeysOfManyObjectsReadFromOneTextStayTheirOwn) {
  // More keys than are remembered at a time, alike in length and at both ends.
  std::string text = "[";
  for (int i = 0; i < 3000; ++i) {
    const std::string middle = std::to_string(1000 + i % 1500);
    text +=
        "{\"abcdefgh" + middle + "stuvwxyz\":" + std::to_string(i) + ",\"same\":1,\"a\\tb\":2},";
  }
  const auto value = json_test::Read(text + "]");
  for (int i = 0; i < 3000; ++i) {
    const CMyJsonObj& object = *value->ValueArrItem(i)->ValueObj();
    ASSERT_EQ(NumberIn(object, "abcdefgh" + std::to_string(1000 + i % 1500) + "stuvwxyz"), i);
    ASSERT_EQ(NumberIn(object, "same"), 1);
    ASSERT_EQ(NumberIn(object, "a\tb"), 2);
  }
}

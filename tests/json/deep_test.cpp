// SPDX-License-Identifier: MIT
// Trees nested a hundred thousand and a million levels deep: no operation uses stack in proportion.

#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include "tests/json/json_support.h"

namespace {

using json_test::Bytes;
using json_test::Compact;
using json_test::Read;
using json_test::Repeat;
using json_test::SameTree;
using json_test::ValuePtr;

class DeepJson : public testing::TestWithParam<std::size_t> {
 protected:
  std::size_t Levels() const { return GetParam(); }
  std::string Arrays() const { return Repeat("[", Levels()) + Repeat("]", Levels()); }
  std::string Objects() const { return Repeat("{\"a\":", Levels()) + "5" + Repeat("}", Levels()); }
};

INSTANTIATE_TEST_SUITE_P(Levels, DeepJson, testing::Values(100000u, 1000000u));

TEST_P(DeepJson, ClosedArraysAreReadClonedAndWritten) {
  const ValuePtr value = Read(Arrays());
  const ValuePtr clone(value->Clone());
  EXPECT_TRUE(SameTree(*value, *clone));
  EXPECT_TRUE(Compact(*clone) == Arrays());
}

TEST_P(DeepJson, ClosedObjectsAreReadCopiedAndWritten) {
  CMyJsonObj object, copy;
  ASSERT_TRUE(object.Load(Objects().c_str()));
  copy.CopyFrom(&object);
  EXPECT_TRUE(Compact(copy) == Objects());
}

TEST_P(DeepJson, UnclosedArraysFailWithoutAMessage) {
  CMyJsonValue value;
  CQNString error;
  EXPECT_FALSE(value.Load(Repeat("[", Levels()).c_str(), error));
  EXPECT_EQ(Bytes(error), "");
  EXPECT_FALSE(value.Load((Repeat("[", Levels()) + "}").c_str(), error));
  EXPECT_EQ(Bytes(error), "");
}

TEST_P(DeepJson, UnclosedArraysInAnObjectFailWithTheObjectsMessage) {
  CMyJsonObj object;
  EXPECT_FALSE(object.Load(("{\"a\":" + Repeat("[", Levels())).c_str()));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "Can't find '}' : {\"a\":" + Repeat("[", 45));
}

TEST_P(DeepJson, UnclosedObjectsFailAtTheEnd) {
  CMyJsonObj object;
  EXPECT_FALSE(object.Load(Repeat("{\"a\":", Levels()).c_str()));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "Invalid number : ");
  EXPECT_FALSE(object.Load((Repeat("{\"a\":", Levels()) + "[").c_str()));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "Can't find '}' : {\"a\":[");
}

TEST_P(DeepJson, UnclosedMixturesDestroyWhatWasRead) {
  CMyJsonObj object;
  EXPECT_FALSE(object.Load(Repeat("{\"a\":[1,\"x\",{},", Levels() / 4).c_str()));
  EXPECT_EQ(Bytes(object.GetErrMsg()), "Can't find '}' : {\"a\":[1,\"x\",{},");
}

TEST_P(DeepJson, PathsAreFollowedAndCreated) {
  std::string path = Repeat("a\\", Levels() - 1) + "a";
  CMyJsonObj object;
  ASSERT_TRUE(object.Load(Objects().c_str()));
  int number = 0;
  EXPECT_TRUE(object.ValueEx(path.c_str(), number, true));
  EXPECT_EQ(number, 5);
  CMyJsonObj created;
  EXPECT_TRUE(created.SetItem(path.c_str(), 5, true, false));
  EXPECT_TRUE(Compact(created) == Objects());
}

TEST_P(DeepJson, ReplacingADeepValueDestroysIt) {
  CMyJsonObj object;
  object.AddItem("a", Read(Arrays()).release());
  object.AddItem("b", Read(Objects()).release());
  EXPECT_TRUE(object.SetItem("a", 1, true, true));
  object.DelItem("b");
  const ValuePtr value = Read(Arrays());
  const CMyJsonValue small(1);
  value->CopyFrom(&small);
  EXPECT_EQ(Compact(object), "{\"a\":1}");
}

TEST(DeepIndentedJson, EveryLevelIsOneTabDeeper) {
  constexpr std::size_t kLevels = 2000;
  CMyJsonObj object;
  ASSERT_TRUE(object.Load((Repeat("{\"a\":", kLevels) + Repeat("}", kLevels)).c_str()));
  const std::string indented = json_test::Indented(object);
  CMyJsonObj reread;
  ASSERT_TRUE(reread.Load(indented.c_str()));
  EXPECT_TRUE(json_test::Indented(reread) == indented);
  std::string expected;
  for (std::size_t level = 0; level < kLevels; ++level) {
    expected += "{\r\n" + std::string(level + 1, '\t') + "\"a\":";
  }
  EXPECT_TRUE(indented.compare(0, expected.size(), expected) == 0);
}

}  // namespace

// SPDX-License-Identifier: MIT
// What hosts hand over by mistake: a tree to itself, or a part of the tree that the call would
// destroy. It is refused where that is found without a search of everything.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::ObjectPtr;
using json_test::Read;
using json_test::ValuePtr;

CMyJsonValue* At(CMyJsonObj& object, const char* path) {
  CMyJsonValue* value = nullptr;
  return object.ValueEx(path, value, true) ? value : nullptr;
}

TEST(JsonMisuse, AnObjectIsNotAddedToItself) {
  CMyJsonObj object;
  object.AddItem("a", 1);
  object.AddItem("self", &object);
  EXPECT_EQ(Compact(object), R"({"a":1})");
}

TEST(JsonMisuse, AValueIsNotAddedToTheObjectThatItHolds) {
  const ValuePtr value = Read(R"({"a":1})");
  value->ValueObj()->AddItem("self", value.get());
  EXPECT_EQ(Compact(*value), R"({"a":1})");
}

TEST(JsonMisuse, NoObjectOnThePathIsSetBelowItself) {
  const char kText[] = R"({"a":{"b":{"c":{}}}})";
  const struct {
    const char* object;  // what is handed over; the outermost one when null
    const char* path;
  } cases[] = {
      {nullptr, "x"},   {nullptr, "a\\x"},      {nullptr, "a\\b\\c\\x"},   {"a", "a\\x"},
      {"a", "a\\b\\x"}, {"a\\b", "a\\b\\c\\x"}, {"a\\b\\c", "a\\b\\c\\x"}, {"a\\b", "a\\b\\new\\x"},
  };
  for (const auto& c : cases) {
    const ValuePtr root = Read(kText);
    CMyJsonObj& object = *root->ValueObj();
    CMyJsonValue* const value = c.object == nullptr ? root.get() : At(object, c.object);
    EXPECT_FALSE(object.SetItem(c.path, value, true, false)) << c.path;
    EXPECT_FALSE(object.SetItem(c.path, value->ValueObj(), true, false)) << c.path;
    EXPECT_EQ(Compact(*root), kText) << c.path;
  }
}

// Hoisting: the member would be destroyed together with what it replaces.
TEST(JsonMisuse, APartOfTheReplacedValueIsNotSetInItsPlace) {
  const char kText[] = R"({"a":{"b":[1,[{"c":2}]],"d":"text"},"e":[3]})";
  CMyJsonObj object;
  ASSERT_TRUE(object.Load(kText));
  CMyJsonValue* const b = At(object, "a\\b");
  CMyJsonValue* const inner = b->ValueArrItem(1)->ValueArrItem(0);
  for (CMyJsonValue* part : {b, b->ValueArrItem(1), inner, At(object, "a\\d")}) {
    EXPECT_FALSE(object.SetItem("a", part, true, true));
  }
  EXPECT_FALSE(object.SetItem("a", inner->ValueObj(), true, true));
  EXPECT_FALSE(object.SetItem("a\\b", inner->ValueObj(), true, true));
  EXPECT_FALSE(object.SetItem("a", At(object, "a")->ValueObj(), true, true));
  EXPECT_FALSE(object.SetItem("e", At(object, "e")->ValueArrItem(0), true, true));
  EXPECT_EQ(Compact(object), kText);
}

TEST(JsonMisuse, TheValueThatStandsThereMayBeSetAgainAndACopyInEveryPlace) {
  CMyJsonObj object;
  ASSERT_TRUE(object.Load(R"({"a":{"b":[1]}})"));
  EXPECT_TRUE(object.SetItem("a", At(object, "a"), true, true));
  EXPECT_TRUE(object.SetItem("a\\b", At(object, "a")->Clone(), true, true));
  EXPECT_EQ(Compact(object), R"({"a":{"b":{"b":[1]}}})");
  EXPECT_TRUE(object.SetItem("a", At(object, "a\\b\\b")->Clone(), true, true));
  EXPECT_EQ(Compact(object), R"({"a":[1]})");
}

TEST(JsonMisuse, AnArrayIsNotMovedIntoAnElementOfItself) {
  const ValuePtr array = Read("[[1],[2]]");
  EXPECT_FALSE(array->ValueArrItem(0)->MoveToArr(array.get(), 0));
  EXPECT_FALSE(array->MoveToArr(array.get(), 0));
  const ValuePtr nested = Read("[[[1]]]");
  CMyJsonValue* const element = nested->ValueArrItem(0)->ValueArrItem(0);
  element->RemoveFromArr(0, true);
  EXPECT_FALSE(element->MoveToArr(nested->ValueArrItem(0), 0));
  EXPECT_EQ(Compact(*array), "[[1],[2]]");
  EXPECT_EQ(Compact(*nested), "[[[]]]");
}

TEST(JsonMisuse, RefusedObjectsStayTheCallers) {
  CMyJsonObj object;
  ASSERT_TRUE(object.Load(R"({"a":1})"));
  const ObjectPtr own(new CMyJsonObj);
  EXPECT_FALSE(object.SetItem("a\\b", own.get(), true, false));
  own->AddItem("still", "usable");
  EXPECT_EQ(Compact(*own), R"({"still":"usable"})");
}

}  // namespace

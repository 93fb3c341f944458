// SPDX-License-Identifier: MIT
#include <quarnfc/json_object.h>

#include <climits>
#include <cmath>
#include <limits>

#include "tests/json/json_support.h"

namespace {

using json_test::Bytes;
using json_test::Compact;
using json_test::ObjectPtr;
using json_test::ValuePtr;

void Load(CMyJsonObj& object, const char* text) { ASSERT_TRUE(object.Load(text)) << text; }

constexpr CMyJsonValue* kNullValue = nullptr;
constexpr CMyJsonObj* kNullObject = nullptr;
constexpr const char* kNullText = nullptr;

// --- adding -------------------------------------------------------------------------------------

TEST(JsonObject, IsOnePointerWideAndStartsEmpty) {
  EXPECT_EQ(sizeof(CMyJsonObj), sizeof(void*));
  const CMyJsonObj object;
  EXPECT_EQ(object.ValueCount(), 0);
  EXPECT_EQ(Bytes(object.GetErrMsg()), "");
}

TEST(JsonObject, AddItemAppendsEveryKindOfValueInOrder) {
  CMyJsonObj object;
  const double doubles[] = {0.5, 1.5};
  const int ints[] = {1, 2};
  CMyJsonValue* values[] = {new CMyJsonValue("v"), new CMyJsonValue(true)};
  object.AddItem("value", new CMyJsonValue(1));
  object.AddItem("empty");
  object.AddItem("text", "t");
  object.AddItem("null text", kNullText);
  object.AddItem("double", 2.5);
  object.AddItem("int", -3);
  object.AddItem("bool", false);
  object.AddItem("values", values, 2);
  object.AddItem("doubles", doubles, 2);
  object.AddItem("ints", ints, 2);
  object.AddItem("object", new CMyJsonObj);
  object.AddItem("null object", kNullObject);
  EXPECT_EQ(Compact(object),
            R"({"value":1,"empty":null,"text":"t","null text":null,"double":2.5,"int":-3,)"
            R"("bool":false,"values":["v",true],"doubles":[0.5,1.5],"ints":[1,2],"object":{},)"
            R"("null object":null})");
}

TEST(JsonObject, AddItemWithNullKeyOrNullValueTakesNothing) {
  CMyJsonObj object, inner;
  CMyJsonValue value(1), element(2);
  CMyJsonValue* elements[] = {&element};
  const int ints[] = {1};
  object.AddItem(nullptr, &value);
  object.AddItem("k", kNullValue);
  object.AddItem(nullptr);
  object.AddItem(nullptr, "t");
  object.AddItem(nullptr, 1.5);
  object.AddItem(nullptr, 1);
  object.AddItem(nullptr, true);
  object.AddItem(nullptr, elements, 1);
  object.AddItem(nullptr, ints, 1);
  object.AddItem(nullptr, &inner);
  EXPECT_EQ(object.ValueCount(), 0);
  EXPECT_EQ(value.ValueNumber(), 1);
  EXPECT_EQ(element.ValueNumber(), 2);
  EXPECT_EQ(inner.ValueCount(), 0);
}

TEST(JsonObject, DuplicateKeysAreKeptAndTheFirstIsFound) {
  CMyJsonObj object;
  object.AddItem("a", 1);
  object.AddItem("a", 2);
  EXPECT_EQ(object.ValueCount(), 2);
  int number = 0;
  EXPECT_TRUE(object.ValueEx("a", number, true));
  EXPECT_EQ(number, 1);
  EXPECT_EQ(Compact(object), R"({"a":1,"a":2})");
}

TEST(JsonObject, AddItemInterpretsNoPath) {
  CMyJsonObj object;
  object.AddItem("a\\b", 1);
  CMyJsonValue* value = nullptr;
  EXPECT_FALSE(object.ValueEx("a\\b", value, true));
  CQNString key;
  object.Item(0, key, value);
  EXPECT_EQ(Bytes(key), "a\\b");
}

TEST(JsonObject, KeyMayBePartOfTheObjectItself) {
  CMyJsonObj object;
  object.AddItem("k", "own text");
  for (int i = 0; i < 10; ++i) {
    const char* text = nullptr;
    ASSERT_TRUE(object.ValueEx("k", text, true));
    object.AddItem(text, text);
  }
  EXPECT_EQ(object.ValueCount(), 11);
}

// --- enumeration and copies ---------------------------------------------------------------------

TEST(JsonObject, ItemOutsideTheMembersTouchesNothing) {
  CMyJsonObj object;
  object.AddItem("a", 1);
  CQNString key("before");
  CMyJsonValue sentinel;
  CMyJsonValue* value = &sentinel;
  object.Item(-1, key, value);
  object.Item(1, key, value);
  EXPECT_EQ(Bytes(key), "before");
  EXPECT_EQ(value, &sentinel);
}

TEST(JsonObject, CloneCarriesTheErrorMessageAndCopyFromDoesNot) {
  CMyJsonObj failed;
  EXPECT_FALSE(failed.Load("x"));
  const ObjectPtr clone(failed.Clone());
  EXPECT_EQ(Bytes(clone->GetErrMsg()), "Can't find { ");
  CMyJsonObj copy;
  copy.CopyFrom(&failed);
  EXPECT_EQ(Bytes(copy.GetErrMsg()), "");
  clone->CopyFrom(&copy);
  EXPECT_EQ(Bytes(clone->GetErrMsg()), "Can't find { ");
}

TEST(JsonObject, NestedClonesCarryTheirErrorMessages) {
  CMyJsonObj outer, copy;
  auto* failed = new CMyJsonObj;
  EXPECT_FALSE(failed->Load("x"));
  outer.AddItem("inner", failed);
  copy.CopyFrom(&outer);
  CMyJsonObj* inner = nullptr;
  ASSERT_TRUE(copy.ValueEx("inner", inner, true));
  EXPECT_NE(inner, failed);
  EXPECT_EQ(Bytes(inner->GetErrMsg()), "Can't find { ");
}

TEST(JsonObject, CopiesAreDeep) {
  CMyJsonObj original;
  Load(original, R"({"a":{"b":[1,{"c":2}]},"a":"x"})");
  const ObjectPtr clone(original.Clone());
  CMyJsonObj copy;
  copy.AddItem("old", 1);
  copy.CopyFrom(&original);
  EXPECT_TRUE(original.SetItem("a\\b", 0, true, true));
  for (const CMyJsonObj* deep : {clone.get(), &copy}) {
    EXPECT_EQ(Compact(*deep), R"({"a":{"b":[1,{"c":2}]},"a":"x"})");
  }
}

TEST(JsonObject, CopyFromItselfAPartOfItselfOrNullIsSafe) {
  CMyJsonObj object;
  Load(object, R"({"in":{"a":1}})");
  object.CopyFrom(&object);
  EXPECT_EQ(Compact(object), R"({"in":{"a":1}})");
  CMyJsonObj* inner = nullptr;
  ASSERT_TRUE(object.ValueEx("in", inner, true));
  object.CopyFrom(inner);
  object.CopyFrom(nullptr);
  EXPECT_EQ(Compact(object), R"({"a":1})");
}

TEST(JsonObject, CopyingSharesTheRecord) {
  CMyJsonObj original;
  alignas(CMyJsonObj) unsigned char storage[sizeof(CMyJsonObj)];
  // Only one of those that share may be destroyed, so the copy lives where nothing destroys it.
  auto* shared = new (storage) CMyJsonObj(original);
  *shared = original;
  shared->AddItem("a", 1);
  EXPECT_EQ(original.ValueCount(), 1);
}

// --- key search ---------------------------------------------------------------------------------

struct SearchCase {
  const char* key;
  bool exact;
  int found;  // the member's number; 0 for none
};

TEST(JsonObject, ExactMatchIsPreferredWhereverItStands) {
  CMyJsonObj object;
  Load(object, R"({"Name":1,"name":2,"OTHER":3})");
  const SearchCase cases[] = {
      {"name", false, 2},  {"NAME", false, 1}, {"NAME", true, 0}, {"Name", true, 1},
      {"other", false, 3}, {"none", false, 0}, {"", false, 0},
  };
  for (const auto& [key, exact, found] : cases) {
    int number = 0;
    EXPECT_EQ(object.ValueEx(key, number, exact), found != 0) << key;
    EXPECT_EQ(number, found) << key;
  }
}

TEST(JsonObject, CaseIsIgnoredByCharactersOfTheCodePage) {
  CMyJsonObj object;
  object.AddItem("\xC4\x41z", 1);  // a double-byte character whose second byte is 'A', then 'z'
  CMyJsonValue* value = nullptr;
  EXPECT_FALSE(object.ValueEx("\xC4\x61Z", value, false));
  EXPECT_TRUE(object.ValueEx("\xC4\x41Z", value, false));
}

// --- paths --------------------------------------------------------------------------------------

TEST(JsonPath, WalksIntoNestedObjects) {
  CMyJsonObj object;
  Load(object, R"({"a":{"b":{"c":5}},"n":1,"":{"":7,"a":8}})");
  const struct {
    const char* path;
    int number;  // 0: not found
  } cases[] = {
      {"a\\b\\c", 5}, {"a\\b", 0}, {"a\\x\\c", 0}, {"n\\x", 0},   {"n", 1},     {"\\", 7},
      {"\\a", 8},     {"", 0},     {"a\\", 0},     {"a\\\\c", 0}, {"a/b/c", 0}, {"A\\B\\C", 0},
  };
  for (const auto& [path, expected] : cases) {
    int number = 0;
    EXPECT_EQ(object.ValueEx(path, number, true), expected != 0) << path;
    EXPECT_EQ(number, expected) << path;
  }
  int number = 0;
  EXPECT_TRUE(object.ValueEx("A\\B\\C", number, false));
  EXPECT_EQ(number, 5);
}

TEST(JsonPath, EmptyPathIsOneEmptyKey) {
  CMyJsonObj object;
  EXPECT_TRUE(object.SetItem("", 5, true, false));
  EXPECT_EQ(Compact(object), R"({"":5})");
  int number = 0;
  EXPECT_TRUE(object.ValueEx("", number, true));
  EXPECT_EQ(number, 5);
}

TEST(JsonPath, LeadingBackslashIsAnEmptyFirstKeyAndTrailingAnEmptyLast) {
  CMyJsonObj object;
  EXPECT_TRUE(object.SetItem("\\a", 1, true, false));
  EXPECT_TRUE(object.SetItem("b\\", 2, true, false));
  EXPECT_EQ(Compact(object), R"({"":{"a":1},"b":{"":2}})");
}

TEST(JsonPath, BackslashAsSecondByteOfACharacterSeparatesNothing) {
  CMyJsonObj object;
  EXPECT_TRUE(object.SetItem("\x81\x5C\\b", 5, true, false));  // one character, separator, "b"
  CQNString key;
  CMyJsonValue* value = nullptr;
  object.Item(0, key, value);
  EXPECT_EQ(Bytes(key), "\x81\x5C");
  int number = 0;
  EXPECT_TRUE(object.ValueEx("\x81\x5C\\b", number, true));
  EXPECT_EQ(number, 5);
}

TEST(JsonPath, NullPathFindsAndSetsNothing) {
  CMyJsonObj object, inner;
  Load(object, R"({"":1})");
  CMyJsonValue* value = nullptr;
  CMyJsonValue mine(1);
  int number = 0;
  EXPECT_FALSE(object.ValueEx(nullptr, value, true));
  EXPECT_FALSE(object.Value(nullptr, value));
  EXPECT_FALSE(object.ValueEx(nullptr, number, true));
  EXPECT_FALSE(object.SetItem(nullptr, &mine, true, false));
  EXPECT_FALSE(object.SetItem(nullptr, 1, true, false));
  EXPECT_FALSE(object.SetItem(nullptr, &inner, true, false));
  EXPECT_FALSE(object.SetItem2Empty(nullptr, true, false));
  EXPECT_EQ(Compact(object), R"({"":1})");
}

// --- typed lookup -------------------------------------------------------------------------------

// Calls ValueEx with an output of type Out and says whether the output changed.
template <class Out>
bool Finds(const CMyJsonObj& object, const char* path, Out before) {
  Out out = before;
  const bool found = object.ValueEx(path, out, true);
  if (!found) {
    EXPECT_EQ(out, before) << path;
  }
  return found;
}

TEST(JsonObject, TypedLookupAnswersForItsTypeAlone) {
  CMyJsonObj object;
  Load(object, R"({"empty":null,"str":"s","number":2,"arr":[1],"bool":true,"obj":{}})");
  for (const std::string path : {"empty", "str", "number", "arr", "bool", "obj", "missing"}) {
    const char* key = path.c_str();
    EXPECT_EQ(Finds<bool>(object, key, false), path == "bool");
    EXPECT_EQ(Finds<int>(object, key, -99), path == "number");
    EXPECT_EQ(Finds<double>(object, key, -99.5), path == "number");
    EXPECT_EQ(Finds<const char*>(object, key, "before"), path == "str");
    EXPECT_EQ(Finds<CMyJsonObj*>(object, key, nullptr), path == "obj");
    EXPECT_EQ(Finds<CMyJsonValue*>(object, key, nullptr), path != "missing");
    CQNString text("before");
    EXPECT_EQ(object.ValueEx(key, text, true), path == "str");
    EXPECT_EQ(Bytes(text), path == "str" ? "s" : "before");
  }
}

TEST(JsonObject, IntegersAreCutTowardZero) {
  const struct {
    double number;
    int expected;
  } cases[] = {
      {2.9, 2},
      {-2.9, -2},
      {-0.0, 0},
      {2147483647.0, INT_MAX},
      {1e300, INT_MAX},
      {-1e300, INT_MIN},
      {std::numeric_limits<double>::infinity(), INT_MAX},
      {std::nan(""), 0},
  };
  for (const auto& [number, expected] : cases) {
    CMyJsonObj object;
    object.AddItem("n", number);
    int out = -1;
    EXPECT_TRUE(object.ValueEx("n", out, true));
    EXPECT_EQ(out, expected) << number;
  }
}

TEST(JsonObject, LookedUpValuesAreBorrowed) {
  CMyJsonObj object;
  auto* inner = new CMyJsonObj;
  auto* value = new CMyJsonValue("text");
  object.AddItem("inner", inner);
  object.AddItem("value", value);
  CMyJsonObj* found_object = nullptr;
  CMyJsonValue* found_value = nullptr;
  const char* found_text = nullptr;
  EXPECT_TRUE(object.ValueEx("inner", found_object, true));
  EXPECT_TRUE(object.Value("value", found_value));
  EXPECT_TRUE(object.ValueEx("value", found_text, true));
  EXPECT_EQ(found_object, inner);
  EXPECT_EQ(found_value, value);
  EXPECT_EQ(found_text, value->ValueStr());
}

// --- setting ------------------------------------------------------------------------------------

TEST(JsonSetItem, CreatesTheObjectsOnTheWay) {
  CMyJsonObj object;
  EXPECT_TRUE(object.SetItem("a\\b\\c", 5, true, false));
  EXPECT_TRUE(object.SetItem("a\\b\\d", "x", true, false));
  EXPECT_EQ(Compact(object), R"({"a":{"b":{"c":5,"d":"x"}}})");
}

TEST(JsonSetItem, StoresEveryKindOfValue) {
  CMyJsonObj object;
  const double doubles[] = {0.5};
  const int ints[] = {1};
  CMyJsonValue* values[] = {new CMyJsonValue("v")};
  EXPECT_TRUE(object.SetItem("value", new CMyJsonValue(1), true, false));
  EXPECT_TRUE(object.SetItem("text", "t", true, false));
  EXPECT_TRUE(object.SetItem("null text", kNullText, true, false));
  EXPECT_TRUE(object.SetItem("double", 2.5, true, false));
  EXPECT_TRUE(object.SetItem("int", -3, true, false));
  EXPECT_TRUE(object.SetItem("bool", true, true, false));
  EXPECT_TRUE(object.SetItem("values", values, 1, true, false));
  EXPECT_TRUE(object.SetItem("doubles", doubles, 1, true, false));
  EXPECT_TRUE(object.SetItem("ints", ints, 1, true, false));
  EXPECT_TRUE(object.SetItem("object", new CMyJsonObj, true, false));
  EXPECT_TRUE(object.SetItem("null object", kNullObject, true, false));
  EXPECT_TRUE(object.SetItem2Empty("empty", true, false));
  EXPECT_EQ(Compact(object),
            R"({"value":1,"text":"t","null text":null,"double":2.5,"int":-3,"bool":true,)"
            R"("values":["v"],"doubles":[0.5],"ints":[1],"object":{},"null object":null,)"
            R"("empty":null})");
}

TEST(JsonSetItem, ReplacesTheValueAndKeepsTheKeysSpelling) {
  CMyJsonObj object;
  Load(object, R"({"Name":"old","x":{"Y":1}})");
  EXPECT_TRUE(object.SetItem("NAME", 1, false, true));
  EXPECT_TRUE(object.SetItem("X\\y", true, false, true));
  EXPECT_EQ(Compact(object), R"({"Name":1,"x":{"Y":true}})");
  EXPECT_TRUE(object.SetItem("NAME", 2, true, false));
  EXPECT_EQ(Compact(object), R"({"Name":1,"x":{"Y":true},"NAME":2})");
}

TEST(JsonSetItem, OnlyExistingAddsNothing) {
  CMyJsonObj object;
  EXPECT_FALSE(object.SetItem("a\\b", 5, true, true));
  EXPECT_FALSE(object.SetItem("a", 5, true, true));
  EXPECT_EQ(object.ValueCount(), 0);
}

TEST(JsonSetItem, MemberOnTheWayMustBeAnObject) {
  CMyJsonObj object;
  Load(object, R"({"a":1,"arr":[{}]})");
  EXPECT_FALSE(object.SetItem("a\\b", 5, true, false));
  EXPECT_FALSE(object.SetItem("arr\\b", 5, true, false));
  EXPECT_EQ(Compact(object), R"({"a":1,"arr":[{}]})");
}

TEST(JsonSetItem, NullValueIsRefusedBeforeAnythingIsAdded) {
  CMyJsonObj object;
  EXPECT_FALSE(object.SetItem("x", kNullValue, true, false));
  EXPECT_FALSE(object.SetItem("a\\b", kNullValue, true, false));
  EXPECT_EQ(object.ValueCount(), 0);
}

TEST(JsonSetItem, RefusalLeavesWhatWasPassedInToTheCaller) {
  CMyJsonObj object;
  Load(object, R"({"n":1})");
  CMyJsonObj inner;
  CMyJsonValue value(1), element("e");
  CMyJsonValue* elements[] = {&element};
  const double doubles[] = {1};
  const int ints[] = {1};
  EXPECT_FALSE(object.SetItem("n\\x", &value, true, false));
  EXPECT_FALSE(object.SetItem("n\\x", &inner, true, false));
  EXPECT_FALSE(object.SetItem("n\\x", elements, 1, true, false));
  EXPECT_FALSE(object.SetItem("n\\x", doubles, 1, true, false));
  EXPECT_FALSE(object.SetItem("n\\x", ints, 1, true, false));
  EXPECT_FALSE(object.SetItem("n\\x", "text", true, false));
  EXPECT_FALSE(object.SetItem2Empty("n\\x", true, false));
  EXPECT_STREQ(element.ValueStr(), "e");
  EXPECT_EQ(value.ValueNumber(), 1);
  EXPECT_EQ(inner.ValueCount(), 0);
}

TEST(JsonSetItem, SettingTheValueAMemberAlreadyHoldsKeepsIt) {
  CMyJsonObj object;
  auto* value = new CMyJsonValue("kept");
  object.AddItem("a", value);
  EXPECT_TRUE(object.SetItem("a", value, true, false));
  EXPECT_EQ(Compact(object), R"({"a":"kept"})");
}

TEST(JsonSetItem, PathMayBeTextOfTheReplacedMember) {
  CMyJsonObj object;
  object.AddItem("a", "a");
  const char* text = nullptr;
  ASSERT_TRUE(object.ValueEx("a", text, true));
  EXPECT_TRUE(object.SetItem(text, text, true, true));
  EXPECT_EQ(Compact(object), R"({"a":"a"})");
}

// --- removing -----------------------------------------------------------------------------------

TEST(JsonObject, DelItemRemovesTheFirstMatchOnly) {
  CMyJsonObj object;
  Load(object, R"({"a":1,"A":2,"a":3,"b\\c":4,"b":{"c":5}})");
  object.DelItem("a");
  EXPECT_EQ(Compact(object), R"({"A":2,"a":3,"b\c":4,"b":{"c":5}})");
  object.DelItemEx("a", false);
  EXPECT_EQ(Compact(object), R"({"A":2,"b\c":4,"b":{"c":5}})");
  object.DelItem("a");
  object.DelItemEx("a", false);
  EXPECT_EQ(Compact(object), R"({"b\c":4,"b":{"c":5}})");
  object.DelItem("b\\c");
  EXPECT_EQ(Compact(object), R"({"b":{"c":5}})");
  object.DelItem(nullptr);
  object.DelItem("none");
  EXPECT_EQ(object.ValueCount(), 1);
}

}  // namespace

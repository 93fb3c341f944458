// SPDX-License-Identifier: MIT
#include <quarnfc/json_value.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "tests/json/json_support.h"

namespace {

using json_test::ArrayOf;
using json_test::Compact;
using json_test::Read;
using json_test::ValuePtr;

TEST(JsonValue, IsOnePointerWideAndHasStableTypeNumbers) {
  EXPECT_EQ(sizeof(CMyJsonValue), sizeof(void*));
  EXPECT_EQ(sizeof(CMyJsonValue::EValueType), 4u);
  EXPECT_EQ(CMyJsonValue::eEmpty, 0);
  EXPECT_EQ(CMyJsonValue::eStr, 1);
  EXPECT_EQ(CMyJsonValue::eNumber, 2);
  EXPECT_EQ(CMyJsonValue::eArr, 3);
  EXPECT_EQ(CMyJsonValue::eBool, 4);
  EXPECT_EQ(CMyJsonValue::eObj, 5);
}

// --- construction and accessors -----------------------------------------------------------------

TEST(JsonValue, DefaultValueIsEmptyAndItsFieldsReadSafely) {
  const CMyJsonValue value;
  EXPECT_TRUE(value.IsEmpty());
  EXPECT_STREQ(value.ValueStr(), "");
  EXPECT_EQ(value.ValueNumber(), 0);
  EXPECT_FALSE(value.ValueBool());
  EXPECT_EQ(value.ValueObj(), nullptr);
  EXPECT_EQ(value.ValueArrLength(), 0);
}

TEST(JsonValue, TypeQueriesAnswerForExactlyOneType) {
  const ValuePtr values[] = {
      std::make_unique<CMyJsonValue>(),     std::make_unique<CMyJsonValue>("x"),
      std::make_unique<CMyJsonValue>(5),    ArrayOf(1, 2),
      std::make_unique<CMyJsonValue>(true), std::make_unique<CMyJsonValue>(new CMyJsonObj),
  };
  for (int type = 0; type < 6; ++type) {
    const CMyJsonValue& value = *values[type];
    EXPECT_EQ(value.Type(), type);
    const bool answers[] = {value.IsEmpty(), value.IsStr(),  value.IsNumber(),
                            value.IsArr(),   value.IsBool(), value.IsObj()};
    for (int asked = 0; asked < 6; ++asked) {
      EXPECT_EQ(answers[asked], asked == type);
      EXPECT_EQ(value.IsType(static_cast<CMyJsonValue::EValueType>(asked)), asked == type);
    }
  }
}

TEST(JsonValue, NullTextAndNullObjectGiveEmptyValues) {
  EXPECT_TRUE(CMyJsonValue(static_cast<const char*>(nullptr)).IsEmpty());
  EXPECT_TRUE(CMyJsonValue(static_cast<CMyJsonObj*>(nullptr)).IsEmpty());
}

TEST(JsonValue, EmptyTextGivesAString) {
  const CMyJsonValue value("");
  EXPECT_TRUE(value.IsStr());
  EXPECT_STREQ(value.ValueStr(), "");
}

TEST(JsonValue, TextIsCopied) {
  char text[] = "abc";
  const CMyJsonValue value(text);
  text[0] = 'x';
  EXPECT_STREQ(value.ValueStr(), "abc");
}

TEST(JsonValue, ScalarsKeepTheirContent) {
  EXPECT_EQ(CMyJsonValue(2.5).ValueNumber(), 2.5);
  EXPECT_EQ(CMyJsonValue(std::numeric_limits<int>::min()).ValueNumber(), -2147483648.0);
  EXPECT_TRUE(CMyJsonValue(5).IsType(CMyJsonValue::eNumber));
  EXPECT_TRUE(CMyJsonValue(true).ValueBool());
  EXPECT_FALSE(CMyJsonValue(false).ValueBool());
}

TEST(JsonValue, ArrayOfValuesTakesThePointersThemselvesUnchecked) {
  CMyJsonValue* elements[] = {new CMyJsonValue(1), new CMyJsonValue("mixed")};
  const CMyJsonValue array(elements, 2);
  ASSERT_EQ(array.ValueArrLength(), 2);
  EXPECT_EQ(array.ValueArrItem(0), elements[0]);
  EXPECT_EQ(array.ValueArrItem(1), elements[1]);
}

TEST(JsonValue, ObjectValueTakesTheObjectItself) {
  auto* object = new CMyJsonObj;
  const CMyJsonValue value(object);
  EXPECT_EQ(value.ValueObj(), object);
}

template <class Number>
struct NumberArrays : testing::Test {};
using NumberTypes =
    testing::Types<float, double, int, unsigned int, unsigned short, short, unsigned char>;
TYPED_TEST_SUITE(NumberArrays, NumberTypes);

TYPED_TEST(NumberArrays, EveryItemBecomesANumberOfItsOwn) {
  using Limits = std::numeric_limits<TypeParam>;
  const TypeParam numbers[] = {Limits::lowest(), TypeParam(1), Limits::max()};
  const CMyJsonValue array(numbers, 3);
  ASSERT_TRUE(array.IsArr());
  ASSERT_EQ(array.ValueArrLength(), 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(array.ValueArrItem(i)->IsNumber());
    EXPECT_EQ(array.ValueArrItem(i)->ValueNumber(), static_cast<double>(numbers[i]));
  }
}

TYPED_TEST(NumberArrays, CountZeroReadsNothing) {
  const CMyJsonValue array(static_cast<const TypeParam*>(nullptr), 0);
  EXPECT_TRUE(array.IsArr());
  EXPECT_EQ(array.ValueArrLength(), 0);
}

TYPED_TEST(NumberArrays, NegativeCountAndNullSourceFailSafely) {
  const TypeParam one(1);
  EXPECT_EQ(CMyJsonValue(&one, -1).ValueArrLength(), 0);
  EXPECT_EQ(CMyJsonValue(static_cast<const TypeParam*>(nullptr), 3).ValueArrLength(), 0);
}

TEST(JsonValue, FloatsAreWidenedExactly) {
  const float tenth = 0.1f;
  EXPECT_EQ(CMyJsonValue(&tenth, 1).ValueArrItem(0)->ValueNumber(), 0.10000000149011612);
}

TEST(JsonValue, ArrayOfNoValuesIsEmpty) {
  EXPECT_EQ(CMyJsonValue(static_cast<CMyJsonValue* const*>(nullptr), 0).ValueArrLength(), 0);
}

TEST(JsonValue, ValueArrSetsOnlyTheCount) {
  const ValuePtr array = ArrayOf(1, 2, 3);
  CMyJsonValue* untouched = array.get();
  CMyJsonValue* items[] = {untouched, untouched, untouched};
  int count = 0;
  array->ValueArr(items, count);
  EXPECT_EQ(count, 3);
  for (const CMyJsonValue* item : items) EXPECT_EQ(item, untouched);
}

TEST(JsonValue, ItemOutsideTheArrayIsNull) {
  const ValuePtr array = ArrayOf(1);
  EXPECT_EQ(array->ValueArrItem(-1), nullptr);
  EXPECT_EQ(array->ValueArrItem(1), nullptr);
}

TEST(JsonValue, CopyingSharesTheRecord) {
  CMyJsonValue original("shared");
  alignas(CMyJsonValue) unsigned char storage[2][sizeof(CMyJsonValue)];
  // Only one of those that share may be destroyed, so the copies live where nothing destroys them.
  auto* constructed = new (storage[0]) CMyJsonValue(original);
  EXPECT_EQ(constructed->ValueStr(), original.ValueStr());
  auto* assigned = new (storage[1]) CMyJsonValue(original);
  *assigned = original;
  const CMyJsonValue number(7);
  original.CopyFrom(&number);
  EXPECT_EQ(assigned->ValueNumber(), 7);
  EXPECT_TRUE(constructed->IsNumber());
}

// --- deep copies --------------------------------------------------------------------------------

TEST(JsonValue, CloneIsDeepAndEqual) {
  const ValuePtr original = Read(R"([1,"two",true,{"k":[null,{"x":false}]},[]])");
  const ValuePtr clone(original->Clone());
  EXPECT_TRUE(json_test::SameTree(*original, *clone));
  EXPECT_NE(original->ValueArrItem(3)->ValueObj(), clone->ValueArrItem(3)->ValueObj());
  clone->ValueArrItem(3)->ValueObj()->AddItem("new", 1);
  EXPECT_EQ(Compact(*original), R"([1,"two",true,{"k":[0,{"x":false}]},[]])");
}

TEST(JsonValue, CopyFromReplacesEveryTypeByEveryType) {
  const char* const texts[] = {"\"s\"", "5 ", "[1,{}]", "true", R"({"a":1})"};
  for (const char* old_text : texts) {
    for (const char* new_text : texts) {
      const ValuePtr target = Read(old_text);
      const ValuePtr source = Read(new_text);
      target->CopyFrom(source.get());
      EXPECT_TRUE(json_test::SameTree(*target, *source)) << old_text << " <- " << new_text;
    }
    const ValuePtr target = Read(old_text);
    const CMyJsonValue empty;
    target->CopyFrom(&empty);
    EXPECT_TRUE(target->IsEmpty());
    EXPECT_EQ(target->ValueArrLength(), 0);
    EXPECT_EQ(target->ValueObj(), nullptr);
  }
}

TEST(JsonValue, ChangingTheTypeLeavesOldTextAndNumberInPlace) {
  CMyJsonValue value("old");
  const CMyJsonValue number(5), flag(true);
  value.CopyFrom(&number);
  EXPECT_STREQ(value.ValueStr(), "old");
  value.CopyFrom(&flag);
  EXPECT_EQ(value.ValueNumber(), 5);
  EXPECT_STREQ(value.ValueStr(), "old");
}

TEST(JsonValue, CopyFromItselfAPartOfItselfOrNullIsSafe) {
  const ValuePtr value = Read(R"([1,["inner"]])");
  value->CopyFrom(value.get());
  EXPECT_EQ(Compact(*value), R"([1,["inner"]])");
  value->CopyFrom(value->ValueArrItem(1));
  EXPECT_EQ(Compact(*value), R"(["inner"])");
  value->CopyFrom(nullptr);
  EXPECT_EQ(Compact(*value), R"(["inner"])");
}

// --- adding to arrays ---------------------------------------------------------------------------

TEST(JsonArray, EditingAnythingButAnArrayIsRefused) {
  const CMyJsonValue one(1);
  CMyJsonValue moved(2);
  CMyJsonObj object;
  for (const char* text : {"5 ", "\"s\"", "true", "{}"}) {
    const ValuePtr value = Read(text);
    EXPECT_FALSE(value->AddToArr(&one, 0));
    EXPECT_FALSE(value->AddToArr(&object, 0));
    EXPECT_FALSE(value->AddToArr("s", 0));
    EXPECT_FALSE(value->AddToArr(1.5, 0));
    EXPECT_FALSE(value->AddToArr(1, 0));
    EXPECT_FALSE(value->AddToArr(true, 0));
    EXPECT_FALSE(value->MoveToArr(&moved, 0));
    EXPECT_FALSE(value->MoveToArr(&object, 0));
    value->RemoveFromArr(0, true);
  }
}

TEST(JsonArray, FirstElementDecidesTheType) {
  const CMyJsonObj object;
  const ValuePtr arrays[] = {Read(R"(["s"])"), Read("[1]"), Read("[true]"), Read("[{}]")};
  enum { kStr, kNumber, kBool, kObj };
  for (int first = kStr; first <= kObj; ++first) {
    CMyJsonValue& array = *arrays[first];
    EXPECT_EQ(array.AddToArr("t", -1), first == kStr);
    EXPECT_EQ(array.AddToArr(1, -1), first == kNumber);
    EXPECT_EQ(array.AddToArr(1.5, -1), first == kNumber);
    EXPECT_EQ(array.AddToArr(false, -1), first == kBool);
    EXPECT_EQ(array.AddToArr(&object, -1), first == kObj);
    EXPECT_EQ(array.ValueArrLength(), first == kNumber ? 3 : 2);
  }
}

TEST(JsonArray, EmptyArrayTakesAnythingAndThenOnlyThat) {
  const ValuePtr array = Read("[]");
  EXPECT_TRUE(array->AddToArr(5, -1));
  EXPECT_FALSE(array->AddToArr("x", 0));
  EXPECT_EQ(Compact(*array), "[5]");
}

struct PositionCase {
  int pos;
  const char* result;
};

TEST(JsonArray, PositionOutsideTheArrayMeansAtTheEnd) {
  const PositionCase cases[] = {
      {0, "[7,1,2]"}, {1, "[1,7,2]"}, {2, "[1,2,7]"}, {-1, "[1,2,7]"}, {100, "[1,2,7]"}};
  for (const auto& [pos, result] : cases) {
    const ValuePtr added = ArrayOf(1, 2);
    EXPECT_TRUE(added->AddToArr(7, pos));
    EXPECT_EQ(Compact(*added), result);
    const ValuePtr moved = ArrayOf(1, 2);
    EXPECT_TRUE(moved->MoveToArr(new CMyJsonValue(7), pos));
    EXPECT_EQ(Compact(*moved), result);
  }
}

TEST(JsonArray, NullTextInsertsAnEmptyElement) {
  const ValuePtr array = Read(R"(["s"])");
  EXPECT_TRUE(array->AddToArr(static_cast<const char*>(nullptr), 1));
  EXPECT_TRUE(array->ValueArrItem(1)->IsEmpty());
  const ValuePtr numbers = ArrayOf(1);
  EXPECT_FALSE(numbers->AddToArr(static_cast<const char*>(nullptr), 1));
}

TEST(JsonArray, AddedValueIsADeepCopyAndStaysTheCallers) {
  const ValuePtr array = Read("[]");
  const ValuePtr value = Read(R"({"k":[1]})");
  EXPECT_TRUE(array->AddToArr(value.get(), 0));
  EXPECT_TRUE(array->AddToArr(value->ValueObj(), 0));
  value->ValueObj()->AddItem("later", 1);
  EXPECT_EQ(Compact(*array), R"([{"k":[1]},{"k":[1]}])");
}

TEST(JsonArray, NullValuesAreRefusedAndNullObjectsInsertEmptyElements) {
  const ValuePtr array = Read("[]");
  EXPECT_FALSE(array->AddToArr(static_cast<const CMyJsonValue*>(nullptr), 0));
  EXPECT_FALSE(array->MoveToArr(static_cast<CMyJsonValue*>(nullptr), 0));
  EXPECT_EQ(array->ValueArrLength(), 0);
  const ValuePtr objects = Read("[{}]");
  EXPECT_TRUE(objects->AddToArr(static_cast<const CMyJsonObj*>(nullptr), -1));
  EXPECT_TRUE(objects->MoveToArr(static_cast<CMyJsonObj*>(nullptr), -1));
  EXPECT_TRUE(objects->ValueArrItem(1)->IsEmpty());
  EXPECT_TRUE(objects->ValueArrItem(2)->IsEmpty());
}

// --- splicing -----------------------------------------------------------------------------------

TEST(JsonArray, AddedArrayIsSplicedInOrderAndStaysIntact) {
  const ValuePtr array = ArrayOf(0, 9);
  const ValuePtr spliced = ArrayOf(1, 2, 3);
  EXPECT_TRUE(array->AddToArr(spliced.get(), 1));
  EXPECT_EQ(Compact(*array), "[0,1,2,3,9]");
  EXPECT_EQ(Compact(*spliced), "[1,2,3]");
}

TEST(JsonArray, SplicingFlattensExactlyOneLevel) {
  const ValuePtr array = Read("[[0]]");
  const ValuePtr spliced = Read("[[1],[[2]]]");
  EXPECT_TRUE(array->AddToArr(spliced.get(), -1));
  EXPECT_EQ(Compact(*array), "[[0],[1],[[2]]]");
}

TEST(JsonArray, SplicingNothingSucceeds) {
  const ValuePtr array = ArrayOf("s");
  EXPECT_TRUE(array->AddToArr(Read("[]").get(), 0));
  EXPECT_EQ(Compact(*array), R"(["s"])");
}

TEST(JsonArray, SplicingStopsAtTheFirstMismatchFromTheEnd) {
  const ValuePtr array = ArrayOf(9);
  const ValuePtr mixed = Read(R"([1,"x",2,3])");
  EXPECT_FALSE(array->AddToArr(mixed.get(), 0));
  EXPECT_EQ(Compact(*array), "[2,3,9]");
  EXPECT_EQ(Compact(*mixed), R"([1,"x",2,3])");
}

TEST(JsonArray, SplicingIntoAnEmptyArrayFollowsTheLastElement) {
  const ValuePtr array = Read("[]");
  EXPECT_FALSE(array->AddToArr(Read(R"([1,2,"x","y"])").get(), 0));
  EXPECT_EQ(Compact(*array), R"(["x","y"])");
}

TEST(JsonArray, SplicingAnArrayIntoItselfDoublesIt) {
  const ValuePtr array = ArrayOf(1, 2);
  EXPECT_TRUE(array->AddToArr(array.get(), 1));
  EXPECT_EQ(Compact(*array), "[1,1,2,2]");
}

// --- moving -------------------------------------------------------------------------------------

TEST(JsonArray, MovedValueIsInsertedItself) {
  const ValuePtr array = ArrayOf(1);
  auto* value = new CMyJsonValue(2);
  EXPECT_TRUE(array->MoveToArr(value, 0));
  EXPECT_EQ(array->ValueArrItem(0), value);
}

TEST(JsonArray, RefusedMoveLeavesTheValueToTheCaller) {
  const ValuePtr array = ArrayOf(1);
  CMyJsonValue text("mine");
  EXPECT_FALSE(array->MoveToArr(&text, 0));
  EXPECT_STREQ(text.ValueStr(), "mine");
  CMyJsonObj object;
  EXPECT_FALSE(array->MoveToArr(&object, 0));
  EXPECT_EQ(Compact(object), "{}");
  EXPECT_EQ(Compact(*array), "[1]");
}

TEST(JsonArray, MovedArrayGivesUpItsElementsAndIsDestroyed) {
  const ValuePtr array = ArrayOf(0);
  ValuePtr moved = ArrayOf(1, 2);
  const CMyJsonValue* first = moved->ValueArrItem(0);
  EXPECT_TRUE(array->MoveToArr(moved.release(), -1));
  EXPECT_EQ(Compact(*array), "[0,1,2]");
  EXPECT_EQ(array->ValueArrItem(1), first);
}

TEST(JsonArray, PartlyMovedElementsAreInBothArrays) {
  const ValuePtr array = ArrayOf(9);
  const ValuePtr mixed = Read(R"(["x",2,3])");
  EXPECT_FALSE(array->MoveToArr(mixed.get(), 0));
  EXPECT_EQ(Compact(*array), "[2,3,9]");
  EXPECT_EQ(Compact(*mixed), R"(["x",2,3])");
  EXPECT_EQ(array->ValueArrItem(0), mixed->ValueArrItem(1));
  mixed->RemoveFromArr(2, false);
  mixed->RemoveFromArr(1, false);
}

TEST(JsonArray, MovedObjectIsWrappedItself) {
  const ValuePtr array = Read("[]");
  auto* object = new CMyJsonObj;
  EXPECT_TRUE(array->MoveToArr(object, 0));
  EXPECT_EQ(array->ValueArrItem(0)->ValueObj(), object);
}

TEST(JsonArray, MovingAnArrayIntoItselfIsRefused) {
  const ValuePtr array = ArrayOf(1);
  EXPECT_FALSE(array->MoveToArr(array.get(), 0));
  EXPECT_EQ(Compact(*array), "[1]");
}

// --- removing -----------------------------------------------------------------------------------

TEST(JsonArray, RemoveDestroysOrDetaches) {
  const ValuePtr array = ArrayOf(1, 2, 3);
  const ValuePtr detached(array->ValueArrItem(1));
  array->RemoveFromArr(1, false);
  EXPECT_EQ(detached->ValueNumber(), 2);
  array->RemoveFromArr(0, true);
  EXPECT_EQ(Compact(*array), "[3]");
  array->RemoveFromArr(1, true);
  array->RemoveFromArr(-1, true);
  EXPECT_EQ(Compact(*array), "[3]");
}

}  // namespace

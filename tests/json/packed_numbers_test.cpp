// SPDX-License-Identifier: MIT
// Arrays of numbers that are read, or made from numbers, keep these until somebody asks for an
// element. Nobody can tell: they are compared with arrays of values all along.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::Indented;
using json_test::ValuePtr;

// The array of these numbers as values, made one by one.
ValuePtr Plain(const std::vector<double>& numbers) {
  std::vector<CMyJsonValue*> values;
  values.reserve(numbers.size());
  for (const double number : numbers) values.push_back(new CMyJsonValue(number));
  return std::make_unique<CMyJsonValue>(values.data(), static_cast<int>(values.size()));
}

ValuePtr Packed(const std::vector<double>& numbers) {
  return std::make_unique<CMyJsonValue>(numbers.data(), static_cast<int>(numbers.size()));
}

// Reads an array of which something else than a number was an element, so that it is not packed.
ValuePtr ReadPlain(const std::string& elements) {
  ValuePtr value = json_test::Read("[true," + elements + "]");
  value->RemoveFromArr(0, true);
  return value;
}

void ExpectSame(const CMyJsonValue& left, const CMyJsonValue& right) {
  EXPECT_EQ(left.ValueArrLength(), right.ValueArrLength());
  EXPECT_EQ(Compact(left), Compact(right));
  EXPECT_EQ(Indented(left), Indented(right));
  const ValuePtr clone(left.Clone());
  EXPECT_TRUE(json_test::SameTree(*clone, right));
  EXPECT_TRUE(json_test::SameTree(left, right));
  EXPECT_EQ(Compact(left), Compact(right));
}

std::vector<double> RandomNumbers(std::mt19937_64& random) {
  std::vector<double> numbers(random() % 20);
  for (double& number : numbers) {
    number = random() % 2 != 0 ? static_cast<double>(random() % 1000) - 500
                               : std::bit_cast<double>(random() & 0xBFFFFFFFFFFFFFFF);
  }
  return numbers;
}

// What is refused stays here and is destroyed.
bool Move(CMyJsonValue& array, ValuePtr value, int position) {
  const bool moved = array.MoveToArr(value.get(), position);
  if (moved) static_cast<void>(value.release());
  return moved;
}

struct Edit {
  const char* name;
  bool (*run)(CMyJsonValue& array, int position);
};

const Edit kEdits[] = {
    {"AddToArr number", [](CMyJsonValue& array, int at) { return array.AddToArr(1.5, at); }},
    {"AddToArr int", [](CMyJsonValue& array, int at) { return array.AddToArr(7, at); }},
    {"AddToArr text", [](CMyJsonValue& array, int at) { return array.AddToArr("x", at); }},
    {"AddToArr numbers",
     [](CMyJsonValue& array, int at) {
       return array.AddToArr(Packed({8, 9}).get(), at);
     }},
    {"AddToArr itself", [](CMyJsonValue& array, int at) { return array.AddToArr(&array, at); }},
    {"MoveToArr number", [](CMyJsonValue& array,
                            int at) { return Move(array, std::make_unique<CMyJsonValue>(5), at); }},
    {"MoveToArr numbers",
     [](CMyJsonValue& array, int at) {
       return Move(array, Packed({5, 6}), at);
     }},
    {"RemoveFromArr",
     [](CMyJsonValue& array, int at) { return array.RemoveFromArr(at, true), true; }},
    {"ValueArrItem",
     [](CMyJsonValue& array, int at) {
       return array.ValueArrItem(at) != nullptr && array.ValueArrItem(at)->IsNumber();
     }},
    {"CopyFrom a number of an element",
     [](CMyJsonValue& array, int at) {
       if (array.ValueArrItem(at) == nullptr) return false;
       array.ValueArrItem(at)->CopyFrom(Packed({1, 2}).get());
       return true;
     }},
    {"Load an element",
     [](CMyJsonValue& array, int at) {
       CQNString error;
       return array.ValueArrItem(at) != nullptr && array.ValueArrItem(at)->Load("[3,4]", error);
     }},
};

}  // namespace

TEST(PackedNumbers, AreTheValuesOfAPlainArray) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 500; ++i) {
    const std::vector<double> numbers = RandomNumbers(random);
    ExpectSame(*Packed(numbers), *Plain(numbers));
  }
}

TEST(PackedNumbers, KeepEveryBitOfANumber) {
  using Limits = std::numeric_limits<double>;
  const std::vector<double> numbers = {0.0,
                                       -0.0,
                                       Limits::infinity(),
                                       -Limits::infinity(),
                                       Limits::denorm_min(),
                                       Limits::max(),
                                       std::bit_cast<double>(0x7FF4000000000001),
                                       std::bit_cast<double>(0xFFF8000000000123)};
  const ValuePtr packed = Packed(numbers);
  const ValuePtr clone(packed->Clone());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const int index = static_cast<int>(i);
    EXPECT_TRUE(json_test::SameNumber(packed->ValueArrItem(index)->ValueNumber(), numbers[i]));
    EXPECT_TRUE(json_test::SameNumber(clone->ValueArrItem(index)->ValueNumber(), numbers[i]));
  }
}

TEST(PackedNumbers, AnswerEveryEditAsAPlainArrayDoes) {
  for (const Edit& edit : kEdits) {
    for (const int size : {0, 1, 2, 5}) {
      for (int position = -1; position <= size; ++position) {
        const std::vector<double> numbers(static_cast<std::size_t>(size), 2.25);
        const ValuePtr packed = Packed(numbers), plain = Plain(numbers);
        EXPECT_EQ(edit.run(*packed, position), edit.run(*plain, position)) << edit.name;
        ExpectSame(*packed, *plain);
      }
    }
  }
}

TEST(PackedNumbers, AnswerARandomSequenceOfEditsAsAPlainArrayDoes) {
  std::mt19937_64 random(2);
  for (int round = 0; round < 200; ++round) {
    const std::vector<double> numbers = RandomNumbers(random);
    const ValuePtr packed = Packed(numbers), plain = Plain(numbers);
    for (int step = 0; step < 6; ++step) {
      const Edit& edit = kEdits[random() % std::size(kEdits)];
      const int position = static_cast<int>(random() % 8) - 1;
      ASSERT_EQ(edit.run(*packed, position), edit.run(*plain, position)) << edit.name;
      if (packed->ValueArrLength() > 200) break;
    }
    ASSERT_TRUE(json_test::SameTree(*packed, *plain));
  }
}

TEST(PackedNumbers, AreReadAsAPlainArrayIsRead) {
  const char* const elements[] = {"1",
                                  "1,2,3",
                                  "1 2\t3\r\n4",
                                  "1,",
                                  "1,2,",
                                  "-1,-0,0",
                                  "1,,2",
                                  "1,null,2",
                                  "1,\"x\",2",
                                  "\"x\",1",
                                  "1,[2,3],4",
                                  "1,[\"x\",2]",
                                  "[1,2],[3],[]",
                                  "1,{\"a\":[1,2]},3",
                                  "1,true,false",
                                  "01,1.,.5,+5",
                                  "1,.5,2",
                                  "1,+5,2",
                                  "-,1",
                                  "1,-,2",
                                  "1e5,1E-5,1e400",
                                  "1x,2y",
                                  "1 , 2 , 3",
                                  "123456789012345678901234567890,2",
                                  "1]2",
                                  "0.1,0.2,1e-400",
                                  "1:2,3",
                                  "1\"x\"2",
                                  "1,-x,2"};
  for (const std::string text : elements) {
    const std::string array = "[" + text + "]";
    ExpectSame(*json_test::Read(array), *ReadPlain(text));
    ExpectSame(*json_test::Read("[" + array + "," + array + "]"), *ReadPlain(array + "," + array));
  }
}

TEST(PackedNumbers, FailAsAPlainArrayFails) {
  for (const std::string text : {"1", "1,", "1,2", "1,2,3x", "1,-", "1,2}", "1,2,\"x", "1 ", ""}) {
    CQNString error, plain_error;
    CMyJsonValue value, plain;
    EXPECT_EQ(value.Load(("{\"a\":[" + text).c_str(), error),
              plain.Load(("{\"a\":[true," + text).c_str(), plain_error));
    const std::string expected = json_test::Bytes(plain_error);
    const std::size_t inserted = expected.find("[true,");
    EXPECT_EQ(json_test::Bytes(error), inserted == std::string::npos
                                           ? expected
                                           : std::string(expected).erase(inserted + 1, 5));
    EXPECT_TRUE(value.IsEmpty());
  }
}

TEST(PackedNumbers, RandomTextsAreReadAsAPlainArrayReadsThem) {
  std::mt19937 random(3);
  const std::string bytes = "0123456789012345,,,,  --.eE+x[]\"tn";
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (auto left = random() % 12; left > 0; --left) text += bytes[random() % bytes.size()];
    CMyJsonValue value, plain;
    CQNString error;
    const bool read = value.Load(("[" + text + "]").c_str(), error);
    ASSERT_EQ(plain.Load(("[true," + text + "]").c_str(), error), read) << text;
    if (!read) continue;
    plain.RemoveFromArr(0, true);
    ASSERT_TRUE(json_test::SameTree(value, plain)) << text;
    ASSERT_EQ(Compact(value), Compact(plain)) << text;
  }
}

TEST(PackedNumbers, ElementsStayWhereTheyAreOnceTheyWereLookedAt) {
  const ValuePtr array = Packed({1, 2, 3});
  CMyJsonValue* const second = array->ValueArrItem(1);
  array->AddToArr(4, 0);
  EXPECT_EQ(array->ValueArrItem(2), second);
  array->RemoveFromArr(2, false);
  const ValuePtr detached(second);
  EXPECT_EQ(detached->ValueNumber(), 2);
  EXPECT_EQ(Compact(*array), "[4,1,3]");
}

TEST(PackedNumbers, GoWhenTheTypeChanges) {
  CMyJsonValue value;
  CQNString error;
  ASSERT_TRUE(value.Load("[1,2]", error));
  ASSERT_TRUE(value.Load("\"x\"", error));
  EXPECT_EQ(value.ValueArrLength(), 0);
  ASSERT_TRUE(value.Load("[\"a\",2]", error));
  EXPECT_STREQ(value.ValueArrItem(0)->ValueStr(), "a");
  ASSERT_TRUE(value.Load("[1,2]", error));
  const CMyJsonValue number(5);
  value.CopyFrom(&number);
  EXPECT_EQ(value.ValueArrLength(), 0);
  EXPECT_EQ(value.ValueArrItem(0), nullptr);
}

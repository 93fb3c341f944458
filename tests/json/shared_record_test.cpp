// SPDX-License-Identifier: MIT
// Copies of values and objects share one record, and exactly one of them is destroyed: whichever
// that is, and wherever each was made.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::ValuePtr;

// A value that the library made, as the reader and Clone make them.
ValuePtr Made(const char* text) { return ValuePtr(json_test::Read(text)->Clone()); }

// Room for a value whose destructor is never called.
struct Undestroyed {
  alignas(CMyJsonValue) unsigned char bytes[sizeof(CMyJsonValue)];
};

class NamedValue : public CMyJsonValue {
 public:
  explicit NamedValue(int number) : CMyJsonValue(number) {}
  std::string name = "a name that is too long for the object itself";
};

}  // namespace

TEST(SharedRecord, TheCopyDestroysWhatTheLibraryMade) {
  Undestroyed room;
  CMyJsonValue* original = Made("[1,[2],{\"a\":\"b\"}]").release();
  auto* copy = new (room.bytes) CMyJsonValue(*original);
  EXPECT_EQ(Compact(*copy), "[1,[2],{\"a\":\"b\"}]");
  copy->~CMyJsonValue();
  CMyJsonValue::operator delete(original, sizeof(CMyJsonValue));
}

TEST(SharedRecord, TheOriginalIsDestroyedWhileTheCopyIsNot) {
  const ValuePtr original = Made("[1,2]");
  Undestroyed room;
  auto* copy = new (room.bytes) CMyJsonValue(*original);
  EXPECT_EQ(copy->ValueArrLength(), 2);
}

TEST(SharedRecord, ValuesOnTheHeapExchangeTheirRecords) {
  const ValuePtr first = Made("[1,2]"), second = Made("{\"a\":3}");
  Undestroyed room;
  auto* held = new (room.bytes) CMyJsonValue(*first);
  *first = *second;
  *second = *held;
  EXPECT_EQ(Compact(*first), "{\"a\":3}");
  EXPECT_EQ(Compact(*second), "[1,2]");
}

TEST(SharedRecord, ARecordOutlivesTheValueItWasMadeWith) {
  ValuePtr first = Made("\"first\"");
  Undestroyed room, other_room;
  auto* copy = new (room.bytes) CMyJsonValue(*first);
  *first = *new (other_room.bytes) CMyJsonValue("second");
  first.reset();
  EXPECT_STREQ(copy->ValueStr(), "first");
  copy->~CMyJsonValue();
}

TEST(SharedRecord, ObjectsExchangeTheirRecords) {
  const auto value = Made("{\"a\":{\"b\":1}}");
  const std::unique_ptr<CMyJsonObj> first(value->ValueObj()->Clone());
  const auto second = std::make_unique<CMyJsonObj>();
  second->AddItem("x", "y");
  alignas(CMyJsonObj) unsigned char room[sizeof(CMyJsonObj)];
  auto* held = new (room) CMyJsonObj(*first);
  *first = *second;
  *second = *held;
  EXPECT_EQ(Compact(*first), "{\"x\":\"y\"}");
  EXPECT_EQ(Compact(*second), "{\"a\":{\"b\":1}}");
}

TEST(SharedRecord, ValuesOfDerivedClassesComeAndGo) {
  for (int i = 0; i < 100; ++i) {
    const auto value = std::make_unique<NamedValue>(i);
    EXPECT_EQ(value->ValueNumber(), i);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(value.get()) % alignof(NamedValue), 0u);
  }
}

TEST(SharedRecord, ValuesDestroyedThroughATreeAndAloneLeaveNothingBehind) {
  CMyJsonValue array(static_cast<const int*>(nullptr), 0);
  for (int i = 0; i < 1000; ++i)
    array.MoveToArr(i % 2 ? new CMyJsonValue(i) : Made("5 ").release(), -1);
  for (int i = 0; i < 500; ++i) {
    CMyJsonValue* element = array.ValueArrItem(0);
    array.RemoveFromArr(0, i % 2 == 0);
    if (i % 2 != 0) delete element;
  }
  EXPECT_EQ(array.ValueArrLength(), 500);
}

TEST(SharedTextThreads, ClonesOnSeveralThreadsShareTextSafely) {
  const ValuePtr source = Made("{\"key\":\"text\",\"list\":[\"a\",\"b\",{\"key\":\"text\"}]}");
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([clone = std::shared_ptr<CMyJsonValue>(source->Clone())] {
      for (int round = 0; round < 500; ++round) {
        const ValuePtr copy(clone->Clone());
        ASSERT_EQ(Compact(*copy), Compact(*clone));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// SPDX-License-Identifier: MIT
// What hosts may write without meaning something else: integers of every type, null pointers,
// standard strings and containers, new that does not throw.
#include <gtest/gtest.h>

#include <quarnfc/quarnfc.h>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

template <class Integer>
void ExpectInteger(Integer number) {
  CMyJsonObj object;
  object.AddItem("added", number);
  ASSERT_TRUE(object.SetItem("set", number, true, false));
  Integer added = 0;
  Integer set = 0;
  EXPECT_TRUE(object.ValueEx("added", added, true));
  EXPECT_TRUE(object.ValueEx("set", set, true));
  EXPECT_EQ(added, number);
  EXPECT_EQ(set, number);
  EXPECT_EQ(CMyJsonValue(number).ValueNumber(), static_cast<double>(number));
  CMyJsonValue array(static_cast<const int*>(nullptr), 0);
  ASSERT_TRUE(array.AddToArr(number, -1));
  EXPECT_EQ(array.ValueArrItem(0)->ValueNumber(), static_cast<double>(number));
}

template <class Integer>
void ExpectLimits() {
  ExpectInteger(std::numeric_limits<Integer>::min());
  ExpectInteger(std::numeric_limits<Integer>::max());
  ExpectInteger(static_cast<Integer>(42));
}

template <class Integer>
Integer Cut(double number) {
  CMyJsonObj object;
  object.AddItem("number", number);
  Integer cut = 1;
  EXPECT_TRUE(object.ValueEx("number", cut, true));
  return cut;
}

// A class without operators of its own takes those of the program.
template <class Class>
concept OwnNew = requires(std::size_t size) {
  Class::operator new(size);
};

template <class Class>
concept OwnNewThatDoesNotThrow = requires(std::size_t size) {
  { Class::operator new(size, std::nothrow) }
  noexcept;
};

template <class... Classes>
constexpr bool AllHaveNewThatDoesNotThrow = ((!OwnNew<Classes> ||
                                              OwnNewThatDoesNotThrow<Classes>)&&...);

}  // namespace

TEST(HostTraps, IntegersOfEveryTypeAreNumbers) {
  ExpectLimits<char>();
  ExpectLimits<signed char>();
  ExpectLimits<unsigned char>();
  ExpectLimits<short>();
  ExpectLimits<unsigned short>();
  ExpectLimits<int>();
  ExpectLimits<unsigned int>();
  ExpectLimits<long>();
  ExpectLimits<unsigned long>();
  ExpectLimits<long long>();
  ExpectLimits<unsigned long long>();
  ExpectInteger(9007199254740991ll);  // the largest odd number a double holds
}

TEST(HostTraps, NumbersAreCutToTheIntegerAskedFor) {
  EXPECT_EQ(Cut<unsigned char>(255.9), 255);
  EXPECT_EQ(Cut<unsigned char>(256), 255);
  EXPECT_EQ(Cut<unsigned char>(-1), 0);
  EXPECT_EQ(Cut<short>(-32768.9), -32768);
  EXPECT_EQ(Cut<short>(-1.9), -1);
  EXPECT_EQ(Cut<long long>(9.3e18), std::numeric_limits<long long>::max());
  EXPECT_EQ(Cut<long long>(-9.3e18), std::numeric_limits<long long>::min());
  EXPECT_EQ(Cut<unsigned long long>(18446744073709549568.0), 18446744073709549568ull);
  EXPECT_EQ(Cut<unsigned long long>(std::numeric_limits<double>::infinity()),
            std::numeric_limits<unsigned long long>::max());
  EXPECT_EQ(Cut<unsigned long long>(std::numeric_limits<double>::quiet_NaN()), 0u);
}

TEST(HostTraps, IntegerOfAMissingMemberStaysAsItWas) {
  CMyJsonObj object;
  object.AddItem("text", "12");
  long long number = 7;
  EXPECT_FALSE(object.ValueEx("missing", number, true));
  EXPECT_FALSE(object.ValueEx("text", number, true));
  EXPECT_EQ(number, 7);
}

TEST(HostTraps, NullPointerIsTheEmptyValue) {
  CMyJsonObj object;
  object.AddItem("added", nullptr);
  EXPECT_TRUE(object.SetItem("set", nullptr, true, false));
  EXPECT_STREQ(object.CreateJson(false), "{\"added\":null,\"set\":null}");
  EXPECT_TRUE(CMyJsonValue(nullptr).IsEmpty());
  CMyJsonValue array(static_cast<const int*>(nullptr), 0);
  EXPECT_TRUE(array.AddToArr(nullptr, -1));
  EXPECT_TRUE(array.ValueArrItem(0)->IsEmpty());
}

TEST(HostTraps, TextsThatMayBeWrittenToAreTexts) {
  char text[] = "text";
  char* pointer = text;
  CMyJsonObj object;
  object.AddItem("array", text);
  object.AddItem("pointer", pointer);
  object.AddItem("string", CQNString("string"));
  object.AddItem("flag", true);
  EXPECT_STREQ(object.CreateJson(false),
               "{\"array\":\"text\",\"pointer\":\"text\",\"string\":\"string\",\"flag\":true}");
}

TEST(HostTraps, NewThatDoesNotThrowMakesEveryClass) {
  static_assert(OwnNew<CMyJsonObj> && OwnNew<CQNInternetFile> && !OwnNew<CQNString>);
  static_assert(
      AllHaveNewThatDoesNotThrow<
          CMyJsonObj, CMyJsonValue, CQNCollection, CQNCRC64Stream, CQNCSVFileReader, CQNFixedAlloc,
          CQNGeoCoordinateSystem, CQNHMACSHA256Stream, CQNHttpConnection, CQNHttpFile,
          CQNInternetConnection, CQNInternetException, CQNInternetFile, CQNInternetSession,
          CQNMD5Stream, CQNObject, CQNObjectCollection, CQNPackedMD5Stream, CQNProCoordinateSystem,
          CQNSHA256Stream, CQNString, CQNStringCollection, CQNTempBuffer>);
  std::unique_ptr<CMyJsonValue> value(new (std::nothrow) CMyJsonValue(1));
  std::unique_ptr<CMyJsonObj> object(new (std::nothrow) CMyJsonObj);
  std::unique_ptr<CQNObject> root(new (std::nothrow) CQNObject);
  std::unique_ptr<CQNCollection> collection(new (std::nothrow) CQNCollection);
  std::unique_ptr<CQNStringCollection> strings(new (std::nothrow) CQNStringCollection);
  std::unique_ptr<CQNObjectCollection> objects(new (std::nothrow) CQNObjectCollection);
  std::unique_ptr<CQNString> string(new (std::nothrow) CQNString("text"));
  std::unique_ptr<CQNCSVFileReader> reader(new (std::nothrow) CQNCSVFileReader);
  std::unique_ptr<CQNFixedAlloc> pool(new (std::nothrow) CQNFixedAlloc(64, 8));
  std::unique_ptr<CQNTempBuffer> buffer(new (std::nothrow) CQNTempBuffer(64));
  std::unique_ptr<CQNProCoordinateSystem> system(new (std::nothrow) CQNProCoordinateSystem);
  EXPECT_TRUE(value && object && root && collection && strings && objects && string && reader &&
              pool && buffer && system);
  EXPECT_EQ(value->ValueNumber(), 1);
}

TEST(HostTraps, StringsMoveWithoutThrowing) {
  static_assert(std::is_nothrow_move_constructible_v<CQNString>);
  static_assert(std::is_nothrow_move_assignable_v<CQNString>);
  static_assert(sizeof(CQNString) == sizeof(void*));
  CQNString source("text");
  const char* characters = source;
  CQNString target(std::move(source));
  EXPECT_EQ(static_cast<const char*>(target), characters);
  EXPECT_STREQ(source, "");  // NOLINT(bugprone-use-after-move): stated
  source = "again";
  EXPECT_STREQ(source, "again");
  CQNString assigned;
  assigned = std::move(target);
  EXPECT_STREQ(assigned, "text");
  std::swap(source, assigned);
  EXPECT_STREQ(source, "text");
  EXPECT_STREQ(assigned, "again");
}

TEST(HostTraps, AssigningATemporaryKeepsALockedBuffer) {
  CQNString string("a text");
  char* locked = string.LockBuffer();
  string = CQNString("text");
  EXPECT_EQ(static_cast<const char*>(string), locked);
  EXPECT_STREQ(locked, "text");
}

TEST(HostTraps, AssigningAnEmptyTemporaryKeepsTheBuffer) {
  CQNString string("a text");
  const int capacity = string.GetAllocLength();
  string = CQNString();
  EXPECT_STREQ(string, "");
  EXPECT_EQ(string.GetAllocLength(), capacity);
}

TEST(HostTraps, StandardStringsComeAndGoWhole) {
  const std::string text("a\0b", 3);
  const CQNString string(text);
  EXPECT_EQ(string.GetLength(), 3);
  EXPECT_EQ(string.ToStdString(), text);
  EXPECT_EQ(string.View(), std::string_view(text));
  EXPECT_EQ(CQNString(std::string_view("text").substr(1, 2)), "ex");
  EXPECT_EQ(CQNString(std::string_view()).GetLength(), 0);
  EXPECT_TRUE(CQNString().View().empty());
  EXPECT_EQ(std::string(CQNString("text")), "text");
  EXPECT_EQ(std::string_view(CQNString("text")).size(), 4u);
  static_assert(!std::is_convertible_v<std::string, CQNString>, "unseen");
}

TEST(HostTraps, StringsAreKeysOfStandardContainers) {
  std::map<CQNString, int> ordered;
  std::unordered_map<CQNString, int> unordered;
  for (const char* key : {"b", "a", "\xB3\xA4", "b"}) {
    ++ordered[key];
    ++unordered[CQNString(key)];
  }
  EXPECT_EQ(ordered.size(), 3u);
  EXPECT_EQ(unordered.size(), 3u);
  EXPECT_STREQ(ordered.begin()->first, "a");
  EXPECT_EQ(unordered.at("b"), 2);
}

TEST(HostTraps, EqualStringsHaveEqualHashes) {
  const std::vector<CQNString> strings = {CQNString(""),
                                          CQNString("\xB3"),
                                          CQNString("a"),
                                          CQNString("a\xB3"),
                                          CQNString("a\0b", 3),
                                          CQNString("\xB3\xA4"),
                                          CQNString("\xB3\xA4\xB3"),
                                          CQNString("\xB3\x41"),
                                          CQNString("\x80"),
                                          CQNString("\xFF"),
                                          CQNString("ab"),
                                          CQNString("ba")};
  int equal = 0;
  for (const CQNString& left : strings) {
    for (const CQNString& right : strings) {
      if (left != right) continue;
      ++equal;
      EXPECT_EQ(std::hash<CQNString>()(left), std::hash<CQNString>()(right));
    }
  }
  EXPECT_GT(equal, static_cast<int>(strings.size()));
}

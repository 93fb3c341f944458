// SPDX-License-Identifier: MIT
// Places in a document: pointers, paths with indexes, fallbacks, and the document that owns itself.
#include <quarnfc/ext/json_access.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

using quarnfc::ext::JsonDocument;

JsonDocument Loaded(const char* text) {
  JsonDocument document;
  CQNString error;
  EXPECT_TRUE(document.Load(text, &error)) << static_cast<const char*>(error);
  return document;
}

std::string At(const JsonDocument& document, const char* place) {
  const CMyJsonValue* value = document.Find(place);
  return value == nullptr ? "(nothing)" : static_cast<const char*>(value->CreateJson(false));
}

struct PlaceCase {
  const char* place;
  const char* json;
};

// The document and the places of RFC 6901, section 5; the library's reader keeps "\" in a key as it
// keeps every escaped character, so that member is left out.
TEST(JsonAccess, PointersOfTheStandardsExample) {
  const JsonDocument document =
      Loaded(R"({"foo":["bar","baz"],"":0,"a/b":1,"c%d":2,"e^f":3,"g|h":4," ":7,"m~n":8})");
  const PlaceCase cases[] = {
      {"/foo", "[\"bar\",\"baz\"]"},
      {"/foo/0", "\"bar\""},
      {"/foo/1", "\"baz\""},
      {"/", "0"},
      {"/a~1b", "1"},
      {"/c%d", "2"},
      {"/e^f", "3"},
      {"/g|h", "4"},
      {"/ ", "7"},
      {"/m~0n", "8"},
  };
  for (const PlaceCase& c : cases) EXPECT_EQ(At(document, c.place), c.json) << c.place;
  EXPECT_EQ(document.Find(""), &document.Root());
}

TEST(JsonAccess, PointersThatLeadNowhereGiveNothing) {
  const JsonDocument document = Loaded(R"({"a":[1,2],"n":{"x":1},"~":1})");
  for (const char* place :
       {"/b", "/a/2", "/a/-", "/a/-1", "/a/00", "/a/01", "/a/+1", "/a/1 ", "/a/", "/a/0/0",
        "/n/x/y", "/~", "/~2", "/n/", "/A", "/a/99999999999999999999"}) {
    EXPECT_EQ(At(document, place), "(nothing)") << place;
  }
}

TEST(JsonAccess, PathsTakeKeysAndIndexes) {
  const JsonDocument document =
      Loaded(R"({"servers":[{"port":80},{"port":8080,"names":["a","b"]}],"x":[[1,2],[3]]})");
  const PlaceCase cases[] = {
      {"servers[1]\\port", "8080"},
      {"servers[1]\\names[0]", "\"a\""},
      {"x[0][1]", "2"},
      {"x[1]", "[3]"},
      {"servers[2]\\port", "(nothing)"},
      {"servers[1]port", "(nothing)"},
      {"servers[1", "(nothing)"},
      {"servers[]", "(nothing)"},
      {"servers[01]", "(nothing)"},
      {"servers\\port", "(nothing)"},
      {"x[0]\\", "(nothing)"},
      {"[0]", "(nothing)"},
      {"nothing", "(nothing)"},
  };
  for (const PlaceCase& c : cases) EXPECT_EQ(At(document, c.place), c.json) << c.place;
  EXPECT_EQ(At(Loaded("[[5],[6]]"), "[1][0]"), "6");
}

// Second bytes 5C and 5B: neither a separator nor a bracket.
TEST(JsonAccess, KeysAreWalkedByCharactersOfTheCodePage) {
  const int numbers[] = {1, 2};
  auto* const inner = new CMyJsonObj;
  inner->AddItem("\x95\x5B", numbers, 2);
  auto* const outer = new CMyJsonObj;
  outer->AddItem("\x95\x5C", inner);
  const JsonDocument document(new CMyJsonValue(outer));
  EXPECT_EQ(At(document, "\x95\x5C\\\x95\x5B[1]"), "2");
  EXPECT_EQ(At(document, "/\x95\x5C/\x95\x5B/0"), "1");
}

TEST(JsonAccess, APointerReachesAKeyWithABackslash) {
  CMyJsonObj* const object = new CMyJsonObj;
  object->AddItem("a\\b", 5);
  const JsonDocument document(new CMyJsonValue(object));
  EXPECT_EQ(At(document, "/a\\b"), "5");
}

TEST(JsonAccess, ValuesOfTheRightTypeAreGivenAndAllElseIsTheFallback) {
  const JsonDocument document =
      Loaded(R"({"b":true,"n":2.5,"i":7,"big":3000000000,"s":"text","z":null})");
  EXPECT_EQ(document.ValueOr("b", false), true);
  EXPECT_EQ(document.ValueOr("n", 0.0), 2.5);
  EXPECT_EQ(document.ValueOr("i", 0), 7);
  EXPECT_EQ(document.ValueOr("s", "none"), "text");
  EXPECT_EQ(document.ValueOr("s", std::string("none")), "text");

  EXPECT_EQ(document.ValueOr("n", -1), -1) << "a fraction is no int";
  EXPECT_EQ(document.ValueOr("big", -1), -1) << "too large for an int";
  EXPECT_EQ(document.ValueOr("big", -1.0), 3e9);
  EXPECT_EQ(document.ValueOr("s", 5), 5);
  EXPECT_EQ(document.ValueOr("b", 5), 5);
  EXPECT_EQ(document.ValueOr("i", true), true);
  EXPECT_EQ(document.ValueOr("z", "none"), "none");
  EXPECT_EQ(document.ValueOr("missing", 1.5), 1.5);
}

TEST(JsonAccess, ADocumentCopiesDeeplyAndMoves) {
  JsonDocument first = Loaded(R"({"a":1})");
  JsonDocument second = first;
  second.Root().ValueObj()->SetItem("a", 2, true, false);
  EXPECT_EQ(first.ValueOr("a", 0), 1);
  EXPECT_EQ(second.ValueOr("a", 0), 2);
  const CMyJsonValue* const root = &second.Root();
  const JsonDocument third = std::move(second);
  EXPECT_EQ(&third.Root(), root);
  first = third;
  EXPECT_EQ(first.ValueOr("a", 0), 2);
  first = *&first;
  EXPECT_EQ(first.ValueOr("a", 0), 2);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<JsonDocument>);
}

TEST(JsonAccess, ATextThatFailsLeavesTheDocumentAsItWas) {
  JsonDocument document = Loaded(R"({"a":1})");
  CQNString error;
  EXPECT_FALSE(document.Load("{\"a\":", &error));
  EXPECT_FALSE(error.IsEmpty());
  EXPECT_FALSE(document.Load(nullptr));
  EXPECT_EQ(document.ValueOr("a", 0), 1);
}

}  // namespace

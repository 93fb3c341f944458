// SPDX-License-Identifier: MIT
// JSON documents through the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/json.h>

#include <string>
#include <utility>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

using c_results::Document;
using c_results::Error;
using c_results::Taken;

Document Loaded(const char* text) { return Document(qncJsonParse(text, nullptr)); }

std::string Written(const QncJson* value) { return Taken(qncJsonWrite(value, 0, nullptr)); }

constexpr const char* kBeijing = "\xE5\x8C\x97\xE4\xBA\xAC";

}  // namespace

TEST(CInterfaceJson, FindsValuesByPointerAndByPathWithElements) {
  const Document document =
      Loaded("{\"servers\":[{\"port\":80},{\"port\":8080}],\"a/b\":[[1,2]],\"\xE5\x9F\x8E\":3}");
  ASSERT_NE(document, nullptr);
  const std::pair<const char*, const char*> cases[] = {
      {"/servers/1/port", "8080"},
      {"servers[1]\\port", "8080"},
      {"/a~1b/0/1", "2"},
      {"a/b[0][1]", "2"},
      {"\xE5\x9F\x8E", "3"},
      {"/\xE5\x9F\x8E", "3"},
      {"servers[0]", "{\"port\":80}"},
      {"", nullptr},
  };
  for (const auto& [place, expected] : cases) {
    const QncJson* found = qncJsonFindValue(document.get(), place);
    ASSERT_NE(found, nullptr) << place;
    EXPECT_EQ(Written(found), expected == nullptr ? Written(document.get()) : expected) << place;
  }
  const Document list = Loaded("[1,[2,3]]");
  EXPECT_EQ(Written(qncJsonFindValue(list.get(), "/1/0")), "2");
  EXPECT_EQ(Written(qncJsonFindValue(list.get(), "[1][0]")), "2");
}

TEST(CInterfaceJson, PlacesThatAreNotThereAreNull) {
  const Document document = Loaded(R"({"servers":[{"port":80}]})");
  for (const char* place : {"/servers/1", "servers[1]", "servers[-1]", "/servers/00", "/none",
                            "/servers/0/port/x", "\xF0\x9F\x98\x80", "/~2"}) {
    EXPECT_EQ(qncJsonFindValue(document.get(), place), nullptr) << place;
  }
  EXPECT_EQ(qncJsonFindValue(nullptr, "/a"), nullptr);
  EXPECT_EQ(qncJsonFindValue(document.get(), nullptr), nullptr);
}

TEST(CInterfaceJson, ReadsEveryTypeOfValue) {
  const Document document =
      Loaded(R"({"text":"a","number":1.5,"flag":true,"none":null,"list":[1,2],"object":{"x":1}})");
  ASSERT_NE(document, nullptr);
  struct Case {
    const char* path;
    int type;
    int count;
  };
  const Case cases[] = {
      {"text", QNC_JSON_TEXT, 0},        {"number", QNC_JSON_NUMBER, 0},
      {"flag", QNC_JSON_BOOL, 0},        {"none", QNC_JSON_NULL, 0},
      {"list", QNC_JSON_ARRAY, 2},       {"object", QNC_JSON_OBJECT, 1},
      {"object\\x", QNC_JSON_NUMBER, 0},
  };
  for (const Case& c : cases) {
    const QncJson* value = qncJsonFind(document.get(), c.path);
    ASSERT_NE(value, nullptr) << c.path;
    EXPECT_EQ(qncJsonType(value), c.type) << c.path;
    EXPECT_EQ(qncJsonCount(value), c.count) << c.path;
  }
  EXPECT_EQ(qncJsonCount(document.get()), 6);
}

TEST(CInterfaceJson, GivesContentsOfTheTypeAskedForOnly) {
  const Document document = Loaded(R"({"text":"a","number":1.5,"flag":true})");
  const QncJson* text = qncJsonFind(document.get(), "text");
  const QncJson* number = qncJsonFind(document.get(), "number");
  const QncJson* flag = qncJsonFind(document.get(), "flag");
  EXPECT_EQ(Taken(qncJsonText(text, nullptr)), "a");
  EXPECT_EQ(qncJsonText(number, nullptr), nullptr);

  double read = -1;
  EXPECT_EQ(qncJsonNumber(text, &read), 0);
  EXPECT_EQ(read, -1);
  EXPECT_EQ(qncJsonNumber(number, &read), 1);
  EXPECT_EQ(read, 1.5);

  int set = -1;
  EXPECT_EQ(qncJsonBool(number, &set), 0);
  EXPECT_EQ(set, -1);
  EXPECT_EQ(qncJsonBool(flag, &set), 1);
  EXPECT_EQ(set, 1);
}

TEST(CInterfaceJson, WalksMembersAndElementsInOrder) {
  const Document document = Loaded(R"({"b":[10,20],"a":1})");
  EXPECT_EQ(Taken(qncJsonKey(document.get(), 0, nullptr)), "b");
  EXPECT_EQ(Taken(qncJsonKey(document.get(), 1, nullptr)), "a");
  EXPECT_EQ(qncJsonKey(document.get(), 2, nullptr), nullptr);
  EXPECT_EQ(qncJsonKey(document.get(), -1, nullptr), nullptr);
  const QncJson* list = qncJsonAt(document.get(), 0);
  EXPECT_EQ(Written(qncJsonAt(list, 1)), "20");
  EXPECT_EQ(qncJsonAt(list, 2), nullptr);
  EXPECT_EQ(qncJsonAt(list, -1), nullptr);
  EXPECT_EQ(qncJsonAt(document.get(), 2), nullptr);
  EXPECT_EQ(qncJsonKey(list, 0, nullptr), nullptr);
}

TEST(CInterfaceJson, SpeaksUtf8AndTheCodePageWhereAsked) {
  const std::string text = std::string(R"({"city":")") + kBeijing + "\"}";
  const Document document = Loaded(text.c_str());
  ASSERT_NE(document, nullptr);
  EXPECT_EQ(Taken(qncJsonText(qncJsonFind(document.get(), "city"), nullptr)), kBeijing);
  EXPECT_EQ(Written(document.get()), text);
  EXPECT_EQ(Taken(qncJsonWriteA(document.get(), 0, nullptr)), "{\"city\":\"\xB1\xB1\xBE\xA9\"}");
  const Document ansi(qncJsonParseA("{\"city\":\"\xB1\xB1\xBE\xA9\"}", nullptr));
  EXPECT_EQ(Written(ansi.get()), text);
}

TEST(CInterfaceJson, SaysWhyATextCannotBeRead) {
  for (const char* text : {"{", "{\"a\" 1}", "{\"a\":1,"}) {
    Error error;
    EXPECT_EQ(qncJsonParse(text, error.Out()), nullptr) << text;
    EXPECT_EQ(error.Text().substr(0, 3), "5: ") << text;
    EXPECT_GT(error.Text().size(), 3u) << text;
  }
  Error error;
  EXPECT_EQ(qncJsonParse("{\"a\":\"\xF0\x9F\x98\x80\"}", error.Out()), nullptr);
  EXPECT_NE(error.Text(), "");
  EXPECT_EQ(qncJsonParse(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

TEST(CInterfaceJson, BuildsDocuments) {
  const Document document(qncJsonNewObject(nullptr));
  const Document list(qncJsonNewArray(nullptr));
  EXPECT_EQ(qncJsonAppendNumber(list.get(), 1, nullptr), 1);
  EXPECT_EQ(qncJsonAppendNumber(list.get(), 2.5, nullptr), 1);
  EXPECT_EQ(qncJsonSetText(document.get(), "place\\name", kBeijing, nullptr), 1);
  EXPECT_EQ(qncJsonSetNumber(document.get(), "place\\east", 39.5, nullptr), 1);
  EXPECT_EQ(qncJsonSetBool(document.get(), "open", 7, nullptr), 1);
  EXPECT_EQ(qncJsonSetNull(document.get(), "left", nullptr), 1);
  EXPECT_EQ(qncJsonSetValue(document.get(), "list", list.get(), nullptr), 1);
  EXPECT_EQ(Written(document.get()),
            std::string(R"({"place":{"name":")") + kBeijing +
                R"(","east":39.5},"open":true,"left":null,"list":[1,2.5]})");
  EXPECT_EQ(qncJsonRemove(document.get(), "place", nullptr), 1);
  EXPECT_EQ(qncJsonRemove(document.get(), "nothing", nullptr), 1);
  EXPECT_EQ(qncJsonSetText(document.get(), "open", nullptr, nullptr), 1);
  EXPECT_EQ(Written(document.get()), R"({"open":null,"left":null,"list":[1,2.5]})");
}

TEST(CInterfaceJson, AppendsElementsOfOneTypeOnly) {
  const Document list(qncJsonNewArray(nullptr));
  const Document object = Loaded("{}");
  Error error;
  EXPECT_EQ(qncJsonAppendText(list.get(), "a", error.Out()), 1);
  EXPECT_EQ(qncJsonAppendBool(list.get(), 1, error.Out()), 0);
  EXPECT_EQ(error.Text(),
            "5: Quarn: the JSON value is no array, or its elements have another type");
  EXPECT_EQ(qncJsonAppendValue(list.get(), object.get(), nullptr), 0);
  EXPECT_EQ(qncJsonAppendText(object.get(), "a", nullptr), 0);
  EXPECT_EQ(Written(list.get()), R"(["a"])");

  const Document more = Loaded(R"(["b","c"])");
  EXPECT_EQ(qncJsonAppendValue(list.get(), more.get(), nullptr), 1);
  EXPECT_EQ(Written(list.get()), R"(["a","b","c"])");
}

TEST(CInterfaceJson, RefusesMembersOfWhatIsNoObject) {
  const Document list(qncJsonNewArray(nullptr));
  const Document object = Loaded(R"({"a":1})");
  Error error;
  EXPECT_EQ(qncJsonSetNumber(list.get(), "a", 1, error.Out()), 0);
  EXPECT_EQ(error.Text(), "5: Quarn: the JSON value, or one on the path, is no object");
  EXPECT_EQ(qncJsonSetValue(object.get(), "a\\b", list.get(), nullptr), 0);
  EXPECT_EQ(qncJsonSetValue(object.get(), "a", nullptr, error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncJsonSetText(nullptr, "a", "b", nullptr), 0);
  EXPECT_EQ(Written(object.get()), R"({"a":1})");
}

TEST(CInterfaceJson, NullHandlesReadAsNullValues) {
  EXPECT_EQ(qncJsonType(nullptr), QNC_JSON_NULL);
  EXPECT_EQ(qncJsonCount(nullptr), 0);
  EXPECT_EQ(qncJsonAt(nullptr, 0), nullptr);
  EXPECT_EQ(qncJsonKey(nullptr, 0, nullptr), nullptr);
  EXPECT_EQ(qncJsonFind(nullptr, "a"), nullptr);
  EXPECT_EQ(qncJsonText(nullptr, nullptr), nullptr);
  EXPECT_EQ(qncJsonNumber(nullptr, nullptr), 0);
  EXPECT_EQ(qncJsonBool(nullptr, nullptr), 0);
  qncJsonFree(nullptr);
}

TEST(CInterfaceJson, FilesComeBackAsTheyWere) {
  const std::string path = testing::TempDir() + "c_interface.json";
  const Document document = Loaded((std::string(R"({"city":")") + kBeijing + "\"}").c_str());
  for (const int utf8 : {0, 1}) {
    ASSERT_EQ(qncJsonSaveFile(document.get(), path.c_str(), utf8, nullptr), 1);
    const Document read(qncJsonReadFile(path.c_str(), nullptr));
    EXPECT_EQ(Written(read.get()), Written(document.get())) << utf8;
  }
}

TEST(CInterfaceJson, MissingFilesAreErrors) {
  const std::string path = testing::TempDir() + "missing/c_interface.json";
  Error error;
  EXPECT_EQ(qncJsonReadFile(path.c_str(), error.Out()), nullptr);
  EXPECT_EQ(error.Text().substr(0, 3), "2: ");
  const Document document = Loaded("{}");
  EXPECT_EQ(qncJsonSaveFile(document.get(), path.c_str(), 1, error.Out()), 0);
  EXPECT_EQ(error.Text().substr(0, 4), "14: ");
}

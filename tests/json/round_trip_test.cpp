// SPDX-License-Identifier: MIT
// Documents that are written and read back: random trees and real files.

#include <quarnfc/json_files.h>
#include <quarnfc/string_utils.h>

#include <cstdio>
#include <random>

#include "support/build_paths.h"
#include "tests/json/json_support.h"

namespace {

using json_test::Compact;
using json_test::Indented;
using json_test::Read;
using json_test::SameTree;
using json_test::ValuePtr;

// Random trees of what reads back as it was: no null elements, numbers with few decimal places.
class RandomTree {
 public:
  explicit RandomTree(unsigned seed) : random_(seed) {}

  CMyJsonValue* MakeValue(int depth, bool element) {
    const int kind = Below(depth > 0 ? 8 : 4);
    if (kind >= 6) return MakeArray(depth - 1);
    if (kind >= 4) return new CMyJsonValue(MakeObject(depth - 1));
    if (kind == 3) return element ? new CMyJsonValue(Below(1000)) : new CMyJsonValue;
    if (kind == 2) return new CMyJsonValue(Below(2) == 0);
    if (kind == 1) return new CMyJsonValue(MakeNumber());
    return new CMyJsonValue(MakeText("\\\"\t\r\n/{}[],: ").c_str());
  }

  CMyJsonObj* MakeObject(int depth) {
    auto* object = new CMyJsonObj;
    for (int count = Below(6); count > 0; --count) {
      object->AddItem(MakeText("{}[],: /").c_str(), MakeValue(depth, false));
    }
    return object;
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  double MakeNumber() {
    const double sixteenths = std::uniform_int_distribution<int>()(random_) / 16.0;
    return Below(2) == 0 ? sixteenths : -sixteenths;
  }

  std::string MakeText(const std::string& special) {
    std::string text;
    for (int count = Below(12) * Below(12); count > 0; --count) {
      const int kind = Below(4);
      if (kind == 0) {
        text += special[static_cast<std::size_t>(Below(static_cast<int>(special.size())))];
      } else if (kind == 1) {
        text += "\xD6\xD0";
      } else {
        text += static_cast<char>('a' + Below(26));
      }
    }
    return text;
  }

  CMyJsonValue* MakeArray(int depth) {
    std::vector<CMyJsonValue*> elements;
    for (int count = Below(6); count > 0; --count) elements.push_back(MakeValue(depth, true));
    return new CMyJsonValue(elements.data(), static_cast<int>(elements.size()));
  }

  std::mt19937 random_;
};

TEST(JsonRoundTrip, RandomTreesReadBackFromBothLayouts) {
  for (unsigned seed = 1; seed <= 2000; ++seed) {
    const CMyJsonValue value(RandomTree(seed).MakeObject(6));
    const ValuePtr compact = Read(Compact(value));
    const ValuePtr indented = Read(Indented(value));
    const ValuePtr clone(value.Clone());
    ASSERT_TRUE(SameTree(value, *compact)) << "seed " << seed << '\n' << Compact(value);
    ASSERT_TRUE(SameTree(value, *indented)) << "seed " << seed << '\n' << Indented(value);
    ASSERT_TRUE(SameTree(value, *clone)) << "seed " << seed;
    ASSERT_EQ(Indented(*compact), Indented(*indented)) << "seed " << seed;
  }
}

// Whatever the bytes, the reader ends with an answer.
TEST(JsonRoundTrip, DamagedTextsAreReadSafely) {
  std::mt19937 random(7);
  for (unsigned seed = 1; seed <= 500; ++seed) {
    std::string text = Compact(CMyJsonValue(RandomTree(seed).MakeObject(5)));
    for (int damage = 0; damage < 8; ++damage) {
      text[random() % text.size()] = "{}[]\":,\\ 1n\x81t"[random() % 13];
      CMyJsonValue value;
      CQNString error;
      if (!value.Load(text.c_str(), error)) {
        EXPECT_TRUE(value.IsEmpty());
      }
      text.resize(text.size() - random() % 2);
      if (text.empty()) break;
    }
  }
}

std::string DataPath(const char* name) { return std::string(QUARNFC_TEST_DATA "/json/") + name; }

std::string FileBytes(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return {};
  std::string bytes(4 << 20, '\0');
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
  std::fclose(file);
  return bytes;
}

// Digits beyond the fifteenth decimal place are lost when a document is first written; from then on
// both layouts read back as the same tree.
void ExpectStable(const CMyJsonValue& document) {
  const ValuePtr written = Read(Compact(document));
  EXPECT_TRUE(SameTree(*written, *Read(Indented(document))));
  EXPECT_TRUE(SameTree(*written, *Read(Compact(*written))));
  EXPECT_TRUE(SameTree(*written, *Read(Indented(*written))));
}

TEST(JsonRoundTrip, CanadaHasItsShapeAndIsStable) {
  CMyJsonValue document;
  ASSERT_TRUE(QNJsonUtils::ReadJsonFileEx(DataPath("canada.json").c_str(), document, nullptr));
  ExpectStable(document);
  const CMyJsonObj& root = *document.ValueObj();
  CQNString type;
  ASSERT_TRUE(root.ValueEx("type", type, true));
  EXPECT_STREQ(type, "FeatureCollection");
  CMyJsonValue* features = nullptr;
  ASSERT_TRUE(root.Value("features", features));
  ASSERT_EQ(features->ValueArrLength(), 1);
  CMyJsonValue* rings = nullptr;
  const CMyJsonObj* feature = features->ValueArrItem(0)->ValueObj();
  ASSERT_TRUE(feature->Value("geometry\\coordinates", rings));
  EXPECT_EQ(rings->ValueArrLength(), 480);
  const CMyJsonValue* point = rings->ValueArrItem(0)->ValueArrItem(0);
  EXPECT_EQ(point->ValueArrItem(0)->ValueNumber(), -65.613616999999977);
  EXPECT_EQ(point->ValueArrItem(1)->ValueNumber(), 43.420273000000009);
}

// UTF-8 without a mark is taken byte by byte for ANSI text, and written as it came.
TEST(JsonRoundTrip, TwitterHasItsShapeAndIsStable) {
  CMyJsonValue document;
  ASSERT_TRUE(QNJsonUtils::ReadJsonFileEx(DataPath("twitter.json").c_str(), document, nullptr));
  ExpectStable(document);
  int count = 0;
  ASSERT_TRUE(document.ValueObj()->ValueEx("search_metadata\\count", count, true));
  EXPECT_EQ(count, 100);
  CMyJsonValue* statuses = nullptr;
  ASSERT_TRUE(document.ValueObj()->Value("statuses", statuses));
  ASSERT_EQ(statuses->ValueArrLength(), 100);
  const char* name = nullptr;
  ASSERT_TRUE(statuses->ValueArrItem(0)->ValueObj()->ValueEx("user\\screen_name", name, true));
  EXPECT_STREQ(name, "ayuu0123");
}

TEST(JsonRoundTrip, TwitterWithTheMarkIsReadInTheCodePage) {
  const std::string path = testing::TempDir() + "quarnfc_twitter_mark.json";
  const std::string bytes = "\xEF\xBB\xBF" + FileBytes(DataPath("twitter.json"));
  ASSERT_GT(bytes.size(), 600000u);
  std::FILE* file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
  CMyJsonValue document;
  EXPECT_TRUE(QNJsonUtils::ReadJsonFileEx(path.c_str(), document, nullptr));
  std::remove(path.c_str());
  ASSERT_TRUE(document.IsObj());
  CMyJsonValue* statuses = nullptr;
  ASSERT_TRUE(document.ValueObj()->Value("statuses", statuses));
  const char* text = nullptr;
  ASSERT_TRUE(statuses->ValueArrItem(0)->ValueObj()->ValueEx("text", text, true));
  // "@aym0566x \n\n" and two characters in code page 936
  EXPECT_EQ(std::string(text).substr(0, 16), "@aym0566x \n\n\xC3\xFB\xC7\xB0");
}

}  // namespace

// SPDX-License-Identifier: MIT
// Documents as UTF-8 beside their text converted as a whole.
#include <gtest/gtest.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>

#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "fuzz/json_utf8_reference.h"
#include "tests/json/json_support.h"

namespace {

using json_test::Bytes;
using json_test::Repeat;
using json_test::TakeText;

const std::string kZhong = "\xD6\xD0";
const std::string kLead = "\xB0";

template <class Document>
void ExpectTheSameAsConvertedWhole(const Document& document) {
  for (const bool indent : {false, true}) {
    EXPECT_EQ(TakeText(document.CreateUTF8Json(indent)),
              fuzz::JsonTextAsUtf8(Bytes(document.CreateJson(indent))));
  }
}

void ExpectTheSameOf(const std::string& text) {
  ExpectTheSameAsConvertedWhole(CMyJsonValue(text.c_str()));
}

// --- what stands in a string --------------------------------------------------------------------

TEST(JsonUtf8Text, OfEveryPairBetweenOtherBytesIsThatOfTheWholeText) {
  const std::string filler(1100, 'x');
  for (int lead = 0x80; lead < 0x100; ++lead) {
    CMyJsonObj document;
    document.AddItem("filler", filler.c_str());
    for (int trail = 1; trail < 0x100; ++trail) {
      const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
      document.AddItem(pair.c_str(), ("a" + pair + "b").c_str());
    }
    ExpectTheSameAsConvertedWhole(document);
  }
}

TEST(JsonUtf8Text, HalfACharacterInALongTextBecomesAQuestionMarkAndTheQuoteStays) {
  const std::string filler(2000, 'x');
  CMyJsonObj document;
  document.AddItem("filler", filler.c_str());
  document.AddItem("k\xB0", "\xB0");
  EXPECT_EQ(TakeText(document.CreateUTF8Json(false)),
            "{\"filler\":\"" + filler + "\",\"k?\":\"?\"}");
}

// --- lengths ------------------------------------------------------------------------------------

TEST(JsonUtf8Text, HasNoLengthAtWhichItDiffers) {
  std::vector<std::size_t> lengths;
  for (const std::size_t first : {500u, 1010u}) {
    for (std::size_t i = 0; i < 25; ++i) lengths.push_back(first + i);
  }
  for (const std::size_t length : lengths) {
    ExpectTheSameOf(std::string(length, 'x'));
    ExpectTheSameOf(Repeat(kZhong, length));
    ExpectTheSameOf("x" + Repeat(kZhong, length));
    ExpectTheSameOf("\x80" + Repeat(kZhong, length));
    ExpectTheSameOf(Repeat(kZhong, length) + kLead);
    ExpectTheSameOf(std::string(length, 'x') + kLead);
  }
}

TEST(JsonUtf8Text, HasNoAsciiRunBetweenOtherCharactersAtWhichItDiffers) {
  const std::string filler(1100, 'x');
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string run(length, 'x');
    ExpectTheSameOf(filler + Repeat(run + kZhong, 50));
    ExpectTheSameOf(filler + Repeat(run + "\x80\xFF", 50));
    ExpectTheSameOf(filler + Repeat(run + kLead + " ", 50) + kLead);
  }
}

// The last bytes of a text are looked at one by one.
TEST(JsonUtf8Text, FindsCharactersAmongTheLastBytes) {
  for (std::size_t behind = 0; behind < 20; ++behind) {
    const std::string end(behind, 'x');
    ExpectTheSameOf(std::string(1100, 'x') + "\x80" + end);
    ExpectTheSameOf(std::string(1100, 'x') + kZhong + end);
  }
}

TEST(JsonUtf8Text, OfSeveralPiecesIsThatOfTheWholeText) {
  const std::string run(40, 'x');
  CMyJsonObj document;
  for (const std::size_t count : {100u, 1000u, 3000u}) {
    document.AddItem("a", Repeat(run, count).c_str());
    document.AddItem("b\xB0", Repeat(kZhong + run + kLead, count).c_str());
    document.AddItem(kZhong.c_str(), Repeat(kZhong, 20 * count).c_str());
  }
  ExpectTheSameAsConvertedWhole(document);
}

// --- random -------------------------------------------------------------------------------------

std::string RandomText(std::mt19937& random) {
  const std::string parts[] = {kZhong,
                               kLead,
                               "\x80",
                               "\xFF",
                               "\x95\\",
                               "\xA1\x40",
                               "\xFE\xFE",
                               "\"",
                               "\\",
                               "\r\n",
                               "\xFE\x50",
                               "x",
                               "0123456789",
                               "\x7F",
                               "\x81\x7F",
                               std::string(40, 'y'),
                               std::string(1020, 'z')};
  std::string text;
  for (auto left = random() % 12; left > 0; --left) text += parts[random() % std::size(parts)];
  return text;
}

CMyJsonValue* RandomValue(std::mt19937& random, int depth) {
  const auto kind = random() % (depth > 0 ? 6 : 4);
  if (kind == 0) return new CMyJsonValue(static_cast<double>(random()) / 1024);
  if (kind == 1) return new CMyJsonValue();
  if (kind < 4) return new CMyJsonValue(RandomText(random).c_str());
  if (kind == 4) {
    std::vector<CMyJsonValue*> elements(random() % 5);
    for (CMyJsonValue*& element : elements) element = RandomValue(random, depth - 1);
    return new CMyJsonValue(elements.data(), static_cast<int>(elements.size()));
  }
  auto object = std::make_unique<CMyJsonObj>();
  for (auto left = random() % 5; left > 0; --left) {
    object->AddItem(RandomText(random).c_str(), RandomValue(random, depth - 1));
  }
  return new CMyJsonValue(object.release());
}

TEST(JsonUtf8Text, OfRandomDocumentsIsThatOfTheWholeText) {
  std::mt19937 random(1);
  for (int i = 0; i < 300; ++i) {
    ExpectTheSameAsConvertedWhole(*std::unique_ptr<CMyJsonValue>(RandomValue(random, 4)));
  }
}

}  // namespace

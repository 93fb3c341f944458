// SPDX-License-Identifier: MIT
// The functions that look at bytes first, beside plain ones that step from character to character,
// on texts in which nearly every byte may lead or end a character.
#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "tests/core/text/change_case.h"
#include "tests/support/bytes.h"

namespace {

using quarnfc::CharacterAt;
using quarnfc::MultibyteCharacter;
using quarnfc_test::Bytes;
using text_test::MakeLower;
using text_test::MakeUpper;

constexpr std::ptrdiff_t kNoPlace = -1;

std::ptrdiff_t IndexOf(const std::string& text, const unsigned char* hit) {
  return hit == nullptr ? kNoPlace : hit - Bytes(text.c_str());
}

// Whether a step from character to character comes to this place.
bool WalkComesTo(const std::string& text, std::size_t place) {
  std::size_t at = 0;
  while (at < place) at += CharacterAt(Bytes(text.c_str()) + at).size;
  return at == place;
}

std::ptrdiff_t FirstByWalk(const std::string& text, unsigned int ch, bool last) {
  std::ptrdiff_t found = kNoPlace;
  for (std::size_t at = 0;;) {
    const MultibyteCharacter next = CharacterAt(Bytes(text.c_str()) + at);
    if (next.value == ch && (last || found == kNoPlace)) found = static_cast<std::ptrdiff_t>(at);
    if (next.size == 0) return found;
    at += next.size;
  }
}

std::ptrdiff_t TextByWalk(const std::string& text, const std::string& sub) {
  for (std::size_t at = 0; at + sub.size() <= text.size(); ++at) {
    if (WalkComesTo(text, at) && text.compare(at, sub.size(), sub) == 0) {
      return static_cast<std::ptrdiff_t>(at);
    }
  }
  return kNoPlace;
}

int CompareByWalk(const std::string& left, const std::string& right, bool lower) {
  const unsigned char* left_at = Bytes(left.c_str());
  const unsigned char* right_at = Bytes(right.c_str());
  for (;;) {
    unsigned int left_value = quarnfc::TakeForComparison(left_at);
    unsigned int right_value = quarnfc::TakeForComparison(right_at);
    if (lower) left_value = quarnfc::ToLowerCharacter(left_value);
    if (lower) right_value = quarnfc::ToLowerCharacter(right_value);
    if (left_value != right_value) return left_value > right_value ? 1 : -1;
    if (left_value == 0) return 0;
  }
}

std::string CaseByWalk(std::string text, unsigned int (*map)(unsigned int)) {
  for (std::size_t at = 0; at < text.size();) {
    const MultibyteCharacter next = CharacterAt(Bytes(text.c_str()) + at);
    if (next.IsIncomplete()) break;
    const unsigned int mapped = map(next.value);
    if (next.size == 2) text[at] = static_cast<char>(mapped >> 8);
    text[at + next.size - 1] = static_cast<char>(mapped);
    at += next.size;
  }
  return text;
}

class RandomTexts {
 public:
  // Bytes that are mostly letters, or that are mostly lead and second bytes.
  std::string Next(std::size_t longest) {
    const char* bytes =
        random_() % 2 == 0 ? "abzAZ@[`{\\\xA3\xE1" : "aZ@\\\x81\xA3\xC1\xE1\xFE\x80\xFF|";
    std::string text(random_() % (longest + 1), '\0');
    for (char& byte : text) byte = bytes[random_() % 12];
    return text;
  }

  // Letters, with a character of two bytes or half of one here and there.
  std::string NextLong() {
    std::string text(random_() % 300, '\0');
    for (char& byte : text) byte = "abcXYZ@[`{"[random_() % 10];
    for (auto left = random_() % 3; left > 0 && !text.empty(); --left) {
      text.insert(random_() % text.size(), random_() % 2 == 0 ? "\xA3\xE1" : "\xA3");
    }
    return text;
  }

  std::uint32_t Number() { return random_(); }

 private:
  std::mt19937 random_{1};
};

}  // namespace

TEST(MultibyteWalk, BoundariesAreWhereStepsFromTheStartComeTo) {
  RandomTexts texts;
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = texts.Next(12);
    for (std::size_t place = 0; place < text.size(); ++place) {
      const unsigned char* bytes = Bytes(text.c_str());
      ASSERT_EQ(quarnfc::IsBoundary(bytes, bytes + place), WalkComesTo(text, place)) << i;
    }
  }
}

TEST(MultibyteWalk, CharactersAreFoundWhereAWalkFindsThem) {
  RandomTexts texts;
  for (int i = 0; i < 50'000; ++i) {
    const std::string text = texts.Next(24);
    for (const unsigned int ch :
         {unsigned{'a'}, unsigned{'Z'}, unsigned{'\\'}, 0x81u, 0xFFu, 0u, 0xA3C1u}) {
      const unsigned char* bytes = Bytes(text.c_str());
      ASSERT_EQ(IndexOf(text, quarnfc::MbsChr(bytes, ch)), FirstByWalk(text, ch, false)) << ch;
      ASSERT_EQ(IndexOf(text, quarnfc::MbsRChr(bytes, ch)), FirstByWalk(text, ch, true)) << ch;
    }
  }
}

TEST(MultibyteWalk, TextsAreFoundWhereAWalkFindsThem) {
  RandomTexts texts;
  for (int i = 0; i < 100'000; ++i) {
    const std::string text = texts.Next(24), sub = texts.Next(3);
    ASSERT_EQ(IndexOf(text, quarnfc::MbsStr(Bytes(text.c_str()), Bytes(sub.c_str()))),
              TextByWalk(text, sub));
  }
}

TEST(MultibyteWalk, TextsCompareAsAWalkComparesThem) {
  RandomTexts texts;
  for (int i = 0; i < 100'000; ++i) {
    const std::string start = texts.Next(20);
    const std::string left = start + texts.Next(3), right = start + texts.Next(3);
    ASSERT_EQ(quarnfc::MbsCmp(Bytes(left.c_str()), Bytes(right.c_str())),
              CompareByWalk(left, right, false));
    const std::string upper = CaseByWalk(left, quarnfc::ToUpperCharacter);
    ASSERT_EQ(quarnfc::MbsICmp(Bytes(upper.c_str()), Bytes(right.c_str())),
              CompareByWalk(upper, right, true));
    ASSERT_EQ(quarnfc::MbsICmp(Bytes(upper.c_str()), Bytes(left.c_str())),
              CompareByWalk(upper, left, true));
  }
}

TEST(MultibyteWalk, CaseChangesAsAWalkChangesIt) {
  RandomTexts texts;
  for (int i = 0; i < 50'000; ++i) {
    const std::string text = texts.Next(40);
    std::string upper = text, lower = text;
    MakeUpper(upper);
    MakeLower(lower);
    ASSERT_EQ(upper, CaseByWalk(text, quarnfc::ToUpperCharacter));
    ASSERT_EQ(lower, CaseByWalk(text, quarnfc::ToLowerCharacter));
  }
}

TEST(MultibyteWalk, LongTextsAreTakenInLargerStepsAsAWalkTakesThem) {
  RandomTexts texts;
  for (int i = 0; i < 5'000; ++i) {
    const std::string text = texts.NextLong();
    std::string upper = text, lower = text;
    MakeUpper(upper);
    MakeLower(lower);
    ASSERT_EQ(upper, CaseByWalk(text, quarnfc::ToUpperCharacter));
    ASSERT_EQ(lower, CaseByWalk(text, quarnfc::ToLowerCharacter));

    std::string other = i % 2 == 0 ? upper : lower + texts.Next(2);
    if (i % 3 == 0 && !other.empty()) other[texts.Number() % other.size()] ^= 1;
    if (i % 5 == 0) other.resize(texts.Number() % (other.size() + 1));
    ASSERT_EQ(quarnfc::MbsICmp(Bytes(text.c_str()), Bytes(other.c_str())),
              CompareByWalk(text, other, true))
        << text << '\n'
        << other;
    ASSERT_EQ(quarnfc::MbsICmp(Bytes(other.c_str()), Bytes(text.c_str())),
              CompareByWalk(other, text, true));
  }
}

TEST(MultibyteWalk, CaseChangesUpToTheTerminatorWhereverItStands) {
  for (std::size_t size = 0; size < 140; ++size) {
    for (std::size_t end = 0; end <= size; ++end) {
      std::string text(size, 'a');
      if (end < size) text[end] = '\0';
      std::string expected = std::string(end, 'A') + text.substr(end);
      MakeUpper(text);
      ASSERT_EQ(text, expected) << size << ", " << end;
      MakeLower(text);
      expected.replace(0, end, end, 'a');
      ASSERT_EQ(text, expected) << size << ", " << end;
    }
  }
}

TEST(MultibyteWalk, EveryPlainByteChangesItsCaseLikeAlone) {
  std::string text;
  for (int code = 1; code < 0x80; ++code) text += static_cast<char>(code);
  std::string upper = text, lower = text;
  MakeUpper(upper);
  MakeLower(lower);
  EXPECT_EQ(upper, CaseByWalk(text, quarnfc::ToUpperCharacter));
  EXPECT_EQ(lower, CaseByWalk(text, quarnfc::ToLowerCharacter));
}

// SPDX-License-Identifier: MIT
#include "core/text/byte_search.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

using quarnfc::FindByte;
using quarnfc::FindPresentByte;

// What words are marked by: the byte itself, its neighbours, and those that a carry may touch.
const std::string kOthers("\x00\x01\x7F\x80\xFF!#", 7);

struct Search {
  std::string text;
  std::size_t place;  // of the byte that is looked for, '"'
};

// Calls test(search) for the byte at every place of texts of up to three words, with each other
// byte around it, and once more behind it.
template <class Test>
void ForEverySearch(Test test) {
  for (const char other : kOthers) {
    for (std::size_t length = 1; length <= 24; ++length) {
      for (std::size_t place = 0; place < length; ++place) {
        Search search = {std::string(length, other), place};
        search.text[place] = '"';
        test(search);
        search.text.back() = '"';
        test(search);
      }
    }
  }
}

}  // namespace

TEST(ByteSearch, FindsTheFirstPlaceOfAByteInTextsOfEveryLength) {
  ForEverySearch([](const Search& search) {
    const char* const begin = search.text.data();
    const char* const end = begin + search.text.size();
    ASSERT_EQ(FindByte(begin, end, '"') - begin, static_cast<std::ptrdiff_t>(search.place))
        << search.text;
  });
}

TEST(ByteSearch, FindsNothingInFrontOfTheByte) {
  ForEverySearch([](const Search& search) {
    const char* const begin = search.text.data();
    const char* const end = begin + search.place;
    ASSERT_EQ(FindByte(begin, end, '"'), end) << search.text;
  });
}

TEST(ByteSearch, FindsAByteThatIsThere) {
  ForEverySearch([](const Search& search) {
    const std::string text = search.text + std::string(7, '"');  // read, too
    ASSERT_EQ(FindPresentByte(text.data(), '"') - text.data(),
              static_cast<std::ptrdiff_t>(search.place))
        << search.text;
  });
}

// SPDX-License-Identifier: MIT
// Functions on vectors where every module has a standard library of its own: the vector is the
// host's, whatever it is made of.
#include <gtest/gtest.h>

#include <quarnfc/csv.h>
#include <quarnfc/string_arrays.h>

#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include "tests/support/temp_file.h"

namespace {

int g_blocks = 0;

// An allocator of the host, which counts what it has given out.
template <class Type>
struct HostAllocator {
  using value_type = Type;

  HostAllocator() = default;
  template <class Other>
  HostAllocator(const HostAllocator<Other>&) {}

  Type* allocate(std::size_t count) {
    ++g_blocks;
    return static_cast<Type*>(::operator new(count * sizeof(Type)));
  }
  void deallocate(Type* block, std::size_t) {
    --g_blocks;
    ::operator delete(block);
  }
  bool operator==(const HostAllocator&) const { return true; }
  bool operator!=(const HostAllocator&) const { return false; }
};

using HostRow = std::vector<CQNString, HostAllocator<CQNString>>;

std::string Joined(const HostRow& row) {
  std::string text;
  for (const CQNString& field : row) text += std::string(field) + "|";
  return text;
}

}  // namespace

TEST(HostVectors, RowsFillAVectorWithAnAllocatorOfTheHost) {
  const quarnfc_test::TempFile file("name,value\na,1\nb,2,3\n");
  {
    CQNCSVFileReader reader;
    ASSERT_TRUE(reader.Open(file.path()));
    HostRow row(5, CQNString("left over"));
    EXPECT_TRUE(reader.GetFields(row));
    EXPECT_EQ(Joined(row), "name|value|");
    EXPECT_TRUE(reader.NextRow(row));
    EXPECT_EQ(Joined(row), "a|1|");
    EXPECT_TRUE(reader.NextRow(row));
    EXPECT_EQ(Joined(row), "b|2|3|");
    EXPECT_FALSE(reader.NextRow(row));
    EXPECT_TRUE(row.empty());
    EXPECT_GT(g_blocks, 0);
  }
  EXPECT_EQ(g_blocks, 0);
}

TEST(HostVectors, ManyPiecesGrowTheVectorOfTheHost) {
  const std::string text(10000, ',');
  std::vector<char*> pieces;
  EXPECT_EQ(QNStringUtils::SplitStr(text.c_str(), ',', pieces), 10001);
  EXPECT_EQ(pieces.size(), 10001u);
  QNStringUtils::AdjustStrArr(pieces, true, true);
  EXPECT_TRUE(pieces.empty());
  EXPECT_EQ(qnSplitStr("a;b", ';', pieces), 2);
  EXPECT_STREQ(pieces[1], "b");
  qnFreeStrArr(pieces);
  EXPECT_TRUE(pieces.empty());
}

// SPDX-License-Identifier: MIT
// The districts of China, one file in code page 936 and the same in UTF-8 with mark.
#include <gtest/gtest.h>

#include "support/build_paths.h"
#include "tests/io/csv_rows.h"

namespace io_test {
namespace {

constexpr char kGbkFile[] = QUARNFC_DATA "/districts-gbk.csv";
constexpr char kUtf8File[] = QUARNFC_DATA "/districts-utf8.csv";

TEST(Districts, BothFilesGiveTheSameRows) {
  CQNCSVFileReader gbk;
  CQNCSVFileReader utf8;
  ASSERT_TRUE(gbk.Open(kGbkFile));
  ASSERT_TRUE(utf8.Open(kUtf8File));
  const Row header = {"code", "province", "city", "district", "longitude", "latitude"};
  EXPECT_EQ(Header(gbk), header);
  EXPECT_EQ(Header(utf8), header);

  const std::vector<Row> rows = RestOfRows(gbk);
  ASSERT_EQ(rows.size(), 3508u);
  for (const Row& row : rows) ASSERT_EQ(row.size(), 6u);
  EXPECT_EQ(RestOfRows(utf8), rows);
  EXPECT_EQ(FromAnsi(rows[0][1].c_str()), u"北京市");
}

}  // namespace
}  // namespace io_test

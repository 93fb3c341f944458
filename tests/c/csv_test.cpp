// SPDX-License-Identifier: MIT
// CSV files through the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/csv.h>

#include <memory>
#include <string>

#include "support/build_paths.h"
#include "tests/c/results.h"
#include "tests/support/temp_file.h"

namespace {

using c_results::Error;
using c_results::Taken;

struct Close {
  void operator()(QncCsv* csv) const { qncCsvClose(csv); }
};
using Csv = std::unique_ptr<QncCsv, Close>;

std::string Row(const QncCsv* csv) {
  std::string row;
  for (int i = 0; i < qncCsvCount(csv); ++i) row += Taken(qncCsvText(csv, i, nullptr)) + "|";
  return row;
}

}  // namespace

TEST(CInterfaceCsv, ReadsHeaderAndRows) {
  const quarnfc_test::TempFile file("name,value\na,\"x,y\"\nb,\n");
  const Csv csv(qncCsvOpen(file.path(), nullptr));
  ASSERT_NE(csv, nullptr);
  EXPECT_EQ(qncCsvHeaderCount(csv.get()), 2);
  EXPECT_EQ(Taken(qncCsvHeader(csv.get(), 1, nullptr)), "value");
  EXPECT_EQ(qncCsvHeader(csv.get(), 2, nullptr), nullptr);
  EXPECT_EQ(qncCsvHeader(csv.get(), -1, nullptr), nullptr);

  EXPECT_EQ(qncCsvNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Row(csv.get()), "a|x,y|");
  EXPECT_EQ(qncCsvNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Row(csv.get()), "b||");
  Error error;
  EXPECT_EQ(qncCsvNextRow(csv.get(), error.Out()), 0);
  EXPECT_EQ(error.Text(), "");
  EXPECT_EQ(qncCsvCount(csv.get()), 0);

  EXPECT_EQ(qncCsvRewind(csv.get(), nullptr), 1);
  EXPECT_EQ(qncCsvNextRow(csv.get(), nullptr), 1);
  EXPECT_EQ(Row(csv.get()), "a|x,y|");
}

TEST(CInterfaceCsv, GivesUtf8WhateverTheFileIsWrittenIn) {
  for (const char* name : {"districts-utf8.csv", "districts-gbk.csv"}) {
    const std::string path = std::string(QUARNFC_DATA) + "/" + name;
    const Csv csv(qncCsvOpen(path.c_str(), nullptr));
    ASSERT_NE(csv, nullptr) << name;
    ASSERT_EQ(qncCsvNextRow(csv.get(), nullptr), 1);
    EXPECT_EQ(Taken(qncCsvText(csv.get(), 1, nullptr)), "\xE5\x8C\x97\xE4\xBA\xAC\xE5\xB8\x82")
        << name;
    EXPECT_EQ(Taken(qncCsvTextA(csv.get(), 1, nullptr)), "\xB1\xB1\xBE\xA9\xCA\xD0") << name;
  }
}

TEST(CInterfaceCsv, FindsHeaderFieldsByTheirUtf8Names) {
  const quarnfc_test::TempFile file("a,\xC3\xFB\xB3\xC6,b,a\n");
  const Csv csv(qncCsvOpen(file.path(), nullptr));
  ASSERT_NE(csv, nullptr);
  Error error;
  EXPECT_EQ(qncCsvHeaderIndex(csv.get(), "\xE5\x90\x8D\xE7\xA7\xB0", error.Out()), 1);
  EXPECT_EQ(error.Text(), "");
  EXPECT_EQ(qncCsvHeaderIndex(csv.get(), "b", nullptr), 2);
  for (const char* name : {"a", "c", "", "B"}) {
    EXPECT_EQ(qncCsvHeaderIndex(csv.get(), name, error.Out()), -1) << name;
    EXPECT_EQ(error.Text(), "5: Quarn: not exactly one field has this name") << name;
  }
  EXPECT_EQ(qncCsvHeaderIndex(csv.get(), nullptr, nullptr), -1);
  EXPECT_EQ(qncCsvHeaderIndex(nullptr, "a", error.Out()), -1);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

TEST(CInterfaceCsv, FailuresAreErrors) {
  Error error;
  EXPECT_EQ(qncCsvOpen((testing::TempDir() + "missing.csv").c_str(), error.Out()), nullptr);
  EXPECT_EQ(error.Text().substr(0, 4), "14: ");
  EXPECT_GT(error.Text().size(), 4u);
  EXPECT_EQ(qncCsvOpen(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncCsvNextRow(nullptr, error.Out()), -1);
  EXPECT_EQ(qncCsvRewind(nullptr, nullptr), 0);
  EXPECT_EQ(qncCsvCount(nullptr), 0);
  EXPECT_EQ(qncCsvHeaderCount(nullptr), 0);
  EXPECT_EQ(qncCsvText(nullptr, 0, nullptr), nullptr);
  qncCsvClose(nullptr);
}

TEST(CInterfaceCsv, LineThatIsTooLongIsAFailureAndNoEnd) {
  const quarnfc_test::TempFile file("name\n" + std::string(500000, 'a') + "\n");
  const Csv csv(qncCsvOpen(file.path(), nullptr));
  ASSERT_NE(csv, nullptr);
  Error error;
  EXPECT_EQ(qncCsvNextRow(csv.get(), error.Out()), -1);
  EXPECT_EQ(error.Text().substr(0, 3), "5: ");
}

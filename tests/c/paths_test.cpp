// SPDX-License-Identifier: MIT
// Paths through the flat C interface: UTF-8, whatever the file functions of the system take.
#include <gtest/gtest.h>

#include <quarnfc/c/csv.h>
#include <quarnfc/c/csv_text.h>
#include <quarnfc/c/files.h>
#include <quarnfc/c/json.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/c/results.h"
#include "tests/support/temp_folder.h"

namespace {

using c_results::Error;
using c_results::Taken;
using quarnfc_test::TempFolder;

// "districts 2024" in Chinese, and a name with a character that no code page has.
constexpr char16_t kChineseName[] = u"\u533A\u53BF\u8868 2024.txt";
constexpr char16_t kWorldlyName[] = u"\u533A\U0001F600.txt";

#if defined(_WIN32)
constexpr bool kPathsAreAnsi = true;
#else
constexpr bool kPathsAreAnsi = false;
#endif

// A file of a folder, with its path as the interface takes it.
class NamedFile {
 public:
  NamedFile(const TempFolder& folder, const char16_t* name)
      : path_(folder.path() / name), utf8_(Utf8(path_)) {}

  void Write(const std::string& contents) const {
    std::ofstream(path_, std::ios::binary) << contents;
  }
  std::string Read() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  const char* path() const { return utf8_.c_str(); }

 private:
  static std::string Utf8(const std::filesystem::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
  }

  std::filesystem::path path_;
  std::string utf8_;
};

std::string FirstField(QncCsvText* csv) {
  const bool has_row = qncCsvTextNextRow(csv, nullptr) == 1;
  const std::string field = has_row ? qncCsvTextField(csv, 0, nullptr) : "(no row)";
  qncCsvTextClose(csv);
  return field;
}

std::string FirstHeader(QncCsv* csv) {
  const std::string field = csv == nullptr ? "(no file)" : Taken(qncCsvHeader(csv, 0, nullptr));
  qncCsvClose(csv);
  return field;
}

}  // namespace

TEST(CInterfacePaths, FilesWithChineseNamesAreRead) {
  const TempFolder folder;
  const NamedFile file(folder, kChineseName);
  file.Write("name,value\r\na,1\r\n");
  Error error;
  EXPECT_EQ(FirstHeader(qncCsvOpen(file.path(), error.Out())), "name") << error.Text();
  EXPECT_EQ(FirstField(qncCsvTextOpen(file.path(), ',', error.Out())), "name") << error.Text();
  EXPECT_EQ(FirstField(qncCsvTextOpenEncoded(file.path(), ',', 0, error.Out())), "name")
      << error.Text();
  file.Write("{\"name\": 1}");
  QncJson* document = qncJsonReadFile(file.path(), error.Out());
  EXPECT_EQ(Taken(qncJsonWrite(document, 0, nullptr)), "{\"name\":1}") << error.Text();
  qncJsonFree(document);
}

TEST(CInterfacePaths, FilesWithChineseNamesAreWritten) {
  const TempFolder folder;
  const NamedFile file(folder, kChineseName);
  QncJson* document = qncJsonParse("{\"a\":1}", nullptr);
  Error error;
  EXPECT_EQ(qncJsonSaveFile(document, file.path(), 1, error.Out()), 1) << error.Text();
  qncJsonFree(document);
  EXPECT_EQ(file.Read(), "\xEF\xBB\xBF{\r\n\t\"a\":1\r\n}");
}

TEST(CInterfacePaths, MessagesNameFilesWithChineseNames) {
  const TempFolder folder;
  const NamedFile file(folder, kChineseName);
  const std::string path = file.path();
  Error error;
  EXPECT_EQ(qncCsvOpen(file.path(), error.Out()), nullptr);
  // "opening ... failed, error code: 2"
  EXPECT_EQ(error.Text(), "14: \u6253\u5F00 " + path + " \u5931\u8D25\uFF0C\u9519\u8BEF\u7801: 2");
  EXPECT_EQ(qncJsonReadFile(file.path(), error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "2: Quarn: Can't open " + path + ", error: 0x2");
  file.Write("{}");
  EXPECT_EQ(qncJsonReadFile(file.path(), error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "5: Quarn: " + path + " file length is invalid");
}

TEST(CInterfacePaths, NamesBeyondTheCodePageAreOpenedWhereTheSystemTakesThem) {
  const TempFolder folder;
  const NamedFile file(folder, kWorldlyName);
  file.Write("a,b\r\n");
  Error error;
  if (kPathsAreAnsi) {
    EXPECT_EQ(qncCsvOpen(file.path(), error.Out()), nullptr);
    EXPECT_EQ(error.Text(),
              "5: Quarn: the text is not valid or has characters that the code page lacks");
    QncJson* document = qncJsonParse("{\"a\":1}", nullptr);
    EXPECT_EQ(qncJsonSaveFile(document, file.path(), 1, error.Out()), 0);
    qncJsonFree(document);
    EXPECT_EQ(file.Read(), "a,b\r\n");
  } else {
    EXPECT_EQ(FirstHeader(qncCsvOpen(file.path(), error.Out())), "a") << error.Text();
  }
}

TEST(CInterfacePaths, FilesOfEveryNameAreWrittenWhole) {
  const TempFolder folder;
  for (const char16_t* name : {kChineseName, kWorldlyName}) {
    const NamedFile file(folder, name);
    Error error;
    EXPECT_EQ(qncWriteFile(file.path(), "a\0b", 3, error.Out()), 1) << error.Text();
    EXPECT_EQ(file.Read(), std::string("a\0b", 3));
    EXPECT_EQ(qncWriteFile(file.path(), nullptr, 7, error.Out()), 1) << error.Text();
    EXPECT_EQ(file.Read(), "");
  }
  EXPECT_EQ(folder.FileCount(), 2u);
}

TEST(CInterfacePaths, FilesThatCannotBeWrittenAreAnError) {
  const TempFolder folder;
  Error error;
  const std::string missing = folder.PathOf("none") + "/\xE5\x8C\x97.txt";
  EXPECT_EQ(qncWriteFile(missing.c_str(), "x", 1, error.Out()), 0);
  EXPECT_EQ(error.Text().find("2: Quarn: Can't save " + missing + ", error: 0x"), 0u)
      << error.Text();
  EXPECT_EQ(qncWriteFile("\xFF.txt", "x", 1, error.Out()), 0);
  EXPECT_EQ(error.Text(), "5: Quarn: the path is not UTF-8");
  EXPECT_EQ(qncWriteFile(nullptr, "x", 1, error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

TEST(CInterfacePaths, NoPathIsRefused) {
  Error error;
  EXPECT_EQ(qncCsvOpen(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncCsvTextOpen(nullptr, ',', error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncJsonReadFile(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

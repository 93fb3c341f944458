// SPDX-License-Identifier: MIT
// Rows and messages of a CSV reader as standard containers, so that tests compare and print bytes.
#ifndef QUARNFC_TESTS_IO_CSV_ROWS_H_
#define QUARNFC_TESTS_IO_CSV_ROWS_H_

#include <quarnfc/csv.h>
#include <quarnfc/string_utils.h>

#include <string>
#include <vector>

#include "tests/support/string_bytes.h"
#include "tests/support/temp_file.h"

namespace io_test {

using quarnfc_test::TempFile;

using Row = std::vector<std::string>;

inline Row ToRow(const std::vector<CQNString>& fields) {
  Row row;
  for (const CQNString& field : fields) row.push_back(quarnfc_test::Bytes(field));
  return row;
}

inline Row Header(const CQNCSVFileReader& reader) {
  std::vector<CQNString> fields;
  reader.GetFields(fields);
  return ToRow(fields);
}

// The rows up to the first false.
inline std::vector<Row> RestOfRows(CQNCSVFileReader& reader) {
  std::vector<Row> rows;
  std::vector<CQNString> fields;
  while (reader.NextRow(fields)) rows.push_back(ToRow(fields));
  EXPECT_TRUE(fields.empty());
  return rows;
}

// Code page 936 text as UTF-16.
inline std::u16string FromAnsi(const char* text) {
  std::vector<wchar_t> wide(QNStringUtils::Ansi2Unicode(text, nullptr, 0) + 1);
  const int count =
      QNStringUtils::Ansi2Unicode(text, wide.data(), static_cast<int>(wide.size()) - 1);
  return std::u16string(wide.begin(), wide.begin() + (count - 1));
}

inline std::u16string Message(const CQNCSVFileReader& reader) {
  return FromAnsi(reader.GetLastError());
}

constexpr char16_t kNotOpen[] = u"未打开文件!";
constexpr char16_t kNoHeader[] = u"CSV数据为空或格式无效!";
constexpr char16_t kTooLong[] = u"文件中数据的行长度超过缓存长度(409600字节)，处理失败!";

inline std::u16string OpenFailed(const std::string& path, int error) {
  const std::string code = std::to_string(error);
  return u"打开 " + std::u16string(path.begin(), path.end()) + u" 失败，错误码: " +
         std::u16string(code.begin(), code.end());
}

// A reader on a temporary file with the given contents.
class CsvFile {
 public:
  explicit CsvFile(const std::string& contents) : file_(contents) {
    opened_ = reader_.Open(file_.path());
  }

  bool Opened() const { return opened_; }
  CQNCSVFileReader& Reader() { return reader_; }
  const char* Path() const { return file_.path(); }

 private:
  TempFile file_;
  CQNCSVFileReader reader_;  // closed before the file is removed
  bool opened_;
};

}  // namespace io_test

#endif  // QUARNFC_TESTS_IO_CSV_ROWS_H_

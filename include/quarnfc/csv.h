// SPDX-License-Identifier: MIT
// CQNCSVFileReader: reads a comma-separated text file row by row.
//
// The first row is the header. Fields may stand in double quotes, with "" for a quote inside; a
// quoted field cannot run over the end of its line. Lines end with LF or CR LF. A file that starts
// with the UTF-8 mark EF BB BF is converted to the process ANSI code page; any other is taken as
// bytes. Separators are found byte by byte. The path is in the ANSI code page.
//
// Memory stays constant whatever the size of the file: lines are cut in one buffer of the size of
// the file, and of 409,600 bytes at most, which is also the longest line that can be read.
//
// Errors: a false result and a message (GetLastError); std::bad_alloc when memory is exhausted:
// a row that it cut off is passed over, GoToFirstRow starts again.
// Threads: one thread at a time uses a reader and its copies.
//
// Implemented in io: csv_reader.cpp, csv_row.cpp (fields) and line_source.cpp (lines).
//
// Example:
//   CQNCSVFileReader reader;
//   std::vector<CQNString> row;
//   if (reader.Open("stations.csv")) {
//     while (reader.NextRow(row)) {
//       // row[0], row[1] ...
//     }
//   }
//   CQNString(reader.GetLastError()).IsEmpty();    // == 0
#ifndef QUARNFC_CSV_H_
#define QUARNFC_CSV_H_

#include <quarnfc/export.h>
#include <quarnfc/qn_string.h>

#include <vector>

struct CQNCSVFileReaderImp;

class QN_API CQNCSVFileReader {
 public:
  // A reader with no file open.
  CQNCSVFileReader();

  // Closes the file when no copy of the reader is left.
  ~CQNCSVFileReader();

  // A copy is the same reader: both read one file at one position. The last one destroyed closes
  // it.
  CQNCSVFileReader(const CQNCSVFileReader& other);

  // Gives up the file of this reader, which is closed when no other copy is left, and shares that
  // of other.
  CQNCSVFileReader& operator=(const CQNCSVFileReader& other);

  // Closes what was open, opens a file (null counts as "") and reads its header row. On false the
  // header fields are empty and there is a message; a file without a header row stays open.
  bool Open(const char* path);

  // Assigns the header fields, in the ANSI code page; true when there is at least one. They are
  // those of the last Open or GoToFirstRow.
#if QN_CONTAINERS_CROSS
  bool GetFields(std::vector<CQNString>& fields) const;
#else
  template <class Allocator>
  bool GetFields(std::vector<CQNString, Allocator>& fields) const {
    fields.clear();
    return StoreFields(&fields, &Append<Allocator>);
  }
#endif

  // Reads the next row into row, which is emptied first. False at the end of the data, without a
  // message of its own (an earlier one stays), or on failure, with a message. Stop at the first
  // false. Rows in front of a read error are delivered; the one it cuts off is not.
  //
  //  - Blanks (space and tab) before a field are dropped; those after an unquoted field belong to
  //    it, deliberately. What stands between a closing quote and the next comma is ignored.
  //  - A comma at the end of a line is followed by an empty field.
  //  - Empty lines are passed over when they end with LF alone. One that ends with CR LF is a row
  //    with one empty field, deliberately.
  //  - A zero byte ends a line like LF.
  //  - Deliberately, a last line without LF is not returned when it ends exactly with the 409,600
  //    bytes of a full buffer.
#if QN_CONTAINERS_CROSS
  bool NextRow(std::vector<CQNString>& row);
#else
  template <class Allocator>
  bool NextRow(std::vector<CQNString, Allocator>& row) {
    row.clear();
    return StoreNextRow(&row, &Append<Allocator>);
  }
#endif

  // Goes back to the start and reads the header row again, so that NextRow reads the first data
  // row. May be called at any time after Open. False, with a message, when no file is open or there
  // is no header row; the header fields are then empty.
  bool GoToFirstRow();

  // The last message in code page 936, or "" when there is none; owned by the reader and valid
  // until its next call.
  const char* GetLastError() const;

 private:
#if !QN_CONTAINERS_CROSS
  // GetFields and NextRow for an array of the caller's that is empty: append adds a string to it
  // and returns the string; what it throws passes through.
  bool StoreFields(void* fields, CQNString& (*append)(void* fields)) const;
  bool StoreNextRow(void* row, CQNString& (*append)(void* row));

  template <class Allocator>
  static CQNString& Append(void* row) {
    auto& strings = *static_cast<std::vector<CQNString, Allocator>*>(row);
    strings.push_back(CQNString());
    return strings.back();
  }
#endif

  CQNCSVFileReaderImp* imp_;
};

#endif  // QUARNFC_CSV_H_

// SPDX-License-Identifier: MIT
// The fields of a row as they are found, in the caller's vector.
#ifndef QUARNFC_IO_CSV_FIELDS_H_
#define QUARNFC_IO_CSV_FIELDS_H_

#include <quarnfc/qn_string.h>

#include <cstddef>
#include <vector>

namespace quarnfc::io {

// Writes fields over what the vector holds; destruction drops what is left of that. Nobody can tell
// the result from new strings in an emptied vector: only the strings of the row before are used
// again that nobody shares, and for texts that take the same buffer.
class CsvFields {
 public:
  explicit CsvFields(std::vector<CQNString>& row) : row_(row) {}
  ~CsvFields() { DropRest(); }
  CsvFields(const CsvFields&) = delete;
  CsvFields& operator=(const CsvFields&) = delete;

  std::size_t Count() const { return count_; }

  // Line::kSlack bytes of a text that is not empty can be read, as in a line.
  void Add(const char* text, std::size_t length);
  void Add(const CQNString& text);

 private:
  void AddNew(const char* text, std::size_t length);
  void DropRest() { row_.erase(row_.begin() + static_cast<std::ptrdiff_t>(count_), row_.end()); }

  std::vector<CQNString>& row_;
  std::size_t count_ = 0;
};

}  // namespace quarnfc::io

#endif  // QUARNFC_IO_CSV_FIELDS_H_

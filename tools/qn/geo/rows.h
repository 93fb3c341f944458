// SPDX-License-Identifier: MIT
// Points in files: rows of CSV, and lines as filters of coordinates take them. Everything is read
// and written piece by piece, so that size does not matter.
#ifndef QN_GEO_ROWS_H_
#define QN_GEO_ROWS_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "qn/geo/point.h"
#include "qn/output.h"
#include "qn/text/text_stream.h"

namespace qn {

using PointConversion = std::function<Point(const Point&)>;

struct PointFormat {
  bool degrees_in = true;   // the source has longitude and latitude, which may be sexagesimal
  bool degrees_out = true;  // so has the target
  int decimals = 9;
  std::optional<AxisOrder> order;  // east first when it is not given
  bool json = false;               // lines come out as JSON objects
};

struct CsvColumns {
  std::string x;  // header names; empty means the usual ones
  std::string y;
  char delimiter = ',';
};

// Rows that hold no point that can be converted: each of the first is reported when it is met.
class BadRows {
 public:
  explicit BadRows(bool strict) : strict_(strict) {}

  // Throws Failure when the first is to end the work.
  void Add(std::size_t line, const std::string& why);

  // Reports how many there were; the exit code.
  int Finish() const;

 private:
  const bool strict_;
  std::size_t count_ = 0;
};

// The rows with two columns more: the converted coordinates, empty where a row has none. The first
// row is the header. Throws Failure when it does not tell the columns apart.
void ConvertCsv(TextStream& input, Output& output, const CsvColumns& columns,
                const PointFormat& format, const PointConversion& convert, BadRows& bad);

// Lines "x y rest", separated by blanks or a comma; what starts with "#" and empty lines go
// through. A line that is no point becomes "* *" and its text. As JSON, in UTF-8, each point is
// {"line":1,"easting":...,"northing":...,"rest":"..."}, what is none has "error", and other lines
// are left out.
void ConvertLines(TextStream& input, Output& output, const PointFormat& format,
                  const PointConversion& convert, BadRows& bad);

}  // namespace qn

#endif  // QN_GEO_ROWS_H_

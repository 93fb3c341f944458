// Points in CSV text. Rows are kept as they stand, whatever their encoding: converted coordinates
// are appended to them.
#ifndef QN_GEO_CSV_H_
#define QN_GEO_CSV_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "geo_system.h"

namespace qn {

// A number written in full, nothing around it but blanks; false otherwise.
bool ReadNumber(std::string_view text, double& number);

struct CsvColumns {
  std::string x;  // header names; empty means the usual ones
  std::string y;
};

using PointConversion = std::function<Point(const Point&)>;

// The text with two columns more: the converted coordinates with so many decimals. The first row
// is the header. Throws Failure that names the line when a row has no coordinates.
std::string ConvertCsv(std::string_view csv, const CsvColumns& columns, int decimals,
                       std::string_view added_header, const PointConversion& convert);

// A point as "x,y".
std::string FormatPoint(const Point& point, int decimals);

}  // namespace qn

#endif  // QN_GEO_CSV_H_

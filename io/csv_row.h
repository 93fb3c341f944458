// SPDX-License-Identifier: MIT
// One line of a CSV file, cut into its fields.
#ifndef QUARNFC_IO_CSV_ROW_H_
#define QUARNFC_IO_CSV_ROW_H_

#include <quarnfc/qn_string.h>

#include <vector>

#include "io/line_source.h"

namespace quarnfc::io {

// Puts the fields of line into row, in place of what it holds; at least one. Cuts the fields in
// place. With utf8 their text is converted to the ANSI code page.
void SplitCsvLine(Line line, bool utf8, std::vector<CQNString>& row);

}  // namespace quarnfc::io

#endif  // QUARNFC_IO_CSV_ROW_H_

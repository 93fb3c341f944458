// SPDX-License-Identifier: MIT
// Fields of CSV by name, in the flat C interface.
#ifndef QUARNFC_C_CSV_FIELDS_H_
#define QUARNFC_C_CSV_FIELDS_H_

#include <quarnfc/ext/csv_text.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "c/guarded.h"

namespace quarnfc::c {

// The index of the one field that is name; throws Failure when it is not exactly one.
template <class Text>
int FieldIndex(const std::vector<Text>& fields, std::string_view name) {
  const std::size_t index = quarnfc::ext::FindCsvField(fields, name);
  if (index != quarnfc::ext::kNoCsvField) return static_cast<int>(index);
  throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: not exactly one field has this name");
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_CSV_FIELDS_H_

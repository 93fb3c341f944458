// SPDX-License-Identifier: MIT
// One conversion specification of a format string: "%", flags, width, precision, size prefix and
// conversion character.
#ifndef QUARNFC_CORE_TEXT_FORMAT_SPEC_H_
#define QUARNFC_CORE_TEXT_FORMAT_SPEC_H_

#include <cstdarg>
#include <cstddef>

namespace quarnfc {

// An argument list that can be passed by reference on every target.
struct Arguments {
  va_list list;
};

enum class ArgumentSize { kDefault, kChar, kShort, kLong, kLongLong };

struct FormatSpec {
  bool left = false;   // "-"
  bool plus = false;   // "+"
  bool blank = false;  // " "
  int alternates = 0;  // how many "#"
  bool zero = false;   // "0"
  int width = 0;       // as given: a negative "*" width sets left, too
  int precision = -1;  // -1: none
  ArgumentSize size = ArgumentSize::kDefault;
  char conversion = '\0';  // '\0': the format ended early

  // The columns that the result fills at least.
  std::size_t Columns() const {
    return static_cast<std::size_t>(width < 0 ? -static_cast<long long>(width) : width);
  }
};

// Reads the specification that starts behind "%" and moves format behind it. "*" takes its value
// from the arguments.
FormatSpec ReadFormatSpec(const char*& format, Arguments& arguments);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_FORMAT_SPEC_H_

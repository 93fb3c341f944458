// One conversion specification of a format string: "%", flags, width, precision, size prefix and
// conversion character.
#ifndef QUARNFC_CORE_FORMAT_SPEC_H_
#define QUARNFC_CORE_FORMAT_SPEC_H_

#include <cstdarg>

namespace quarnfc {

// An argument list that can be passed by reference on every target.
struct Arguments {
  va_list list;
};

enum class ArgumentSize { kDefault, kChar, kShort, kLong, kLongLong };

struct FormatSpec {
  bool left = false;       // "-"
  bool plus = false;       // "+"
  bool blank = false;      // " "
  bool alternate = false;  // "#"
  bool zero = false;       // "0"
  int width = 0;           // never negative; a negative "*" width sets left
  int precision = -1;      // -1: none
  ArgumentSize size = ArgumentSize::kDefault;
  char conversion = '\0';  // '\0': the format ended early
};

// Reads the specification that starts behind "%" and moves format behind it. "*" takes its value
// from the arguments.
FormatSpec ReadFormatSpec(const char*& format, Arguments& arguments);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_FORMAT_SPEC_H_

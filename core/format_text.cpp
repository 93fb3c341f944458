#include "core/format_text.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

#include "core/format_spec.h"
#include "core/memory.h"
#include "core/multibyte.h"
#include "platform/platform.h"

namespace quarnfc {
namespace {

constexpr const char kNullText[] = "(null)";
constexpr int kNullTextLength = 6;

class Formatter {
 public:
  Formatter(const char* format, va_list args) : format_(format) { va_copy(arguments_.list, args); }
  ~Formatter() { va_end(arguments_.list); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;

  FormattedText Run() {
    const char* end = format_ + std::strlen(format_);
    while (*format_ != '\0') {
      if (*format_ != '%') {
        AppendCharacter(CharWidth(format_, end));
      } else if (format_[1] == '%') {
        ++format_;
        AppendCharacter(1);
      } else {
        AppendItem();
      }
    }
    result_.estimate = static_cast<int>(std::min<long long>(estimate_, INT_MAX));
    return std::move(result_);
  }

 private:
  void AppendCharacter(int width) {
    result_.text.append(format_, static_cast<std::size_t>(width));
    estimate_ += width;
    format_ += width;
  }

  void AppendItem();
  void AppendText();
  void AppendWideText();
  void AppendSigned();
  void AppendUnsigned();
  void AppendPointer();
  void AppendFloat();
  void AppendPadded(std::string_view text);
  template <class Value>
  void Print(const char* size, Value value, char conversion);

  long long NextSigned();
  unsigned long long NextUnsigned();

  // Estimates: of a text or a character, and of a number.
  void CountText(long long item);
  void CountNumber(long long item) { estimate_ += item; }
  long long WidthAndPrecision() const {
    return static_cast<long long>(spec_.width) + std::max(spec_.precision, 0);
  }

  const char* format_;
  Arguments arguments_;
  FormatSpec spec_;
  FormattedText result_;
  long long estimate_ = 0;
};

void Formatter::AppendItem() {
  ++format_;
  spec_ = ReadFormatSpec(format_, arguments_);
  if (spec_.alternate) estimate_ += 2;
  switch (spec_.conversion) {
    case '\0':
      break;
    case 'c':
    case 'C':
    case 's':
    case 'S': {
      const bool is_upper = spec_.conversion < 'a';
      const bool is_narrow = spec_.size == ArgumentSize::kShort;
      const bool is_wide = spec_.size == ArgumentSize::kLong || (is_upper && !is_narrow);
      is_wide ? AppendWideText() : AppendText();
      break;
    }
    case 'd':
    case 'i':
      AppendSigned();
      break;
    case 'u':
    case 'x':
    case 'X':
    case 'o':
      AppendUnsigned();
      break;
    case 'p':
      AppendPointer();
      break;
    case 'e':
    case 'E':
    case 'f':
    case 'g':
    case 'G':
      AppendFloat();
      break;
    case 'n':
      // Takes its argument; nothing is ever written through it.
      static_cast<void>(va_arg(arguments_.list, void*));
      break;
    default:
      // Not a conversion: the character stands for itself.
      result_.text.push_back(spec_.conversion);
      break;
  }
}

void Formatter::CountText(long long item) {
  if (spec_.precision > 0) item = std::min<long long>(item, spec_.precision);
  estimate_ += std::max<long long>(item, spec_.width);
}

// --- text and characters ------------------------------------------------------------------------

void Formatter::AppendText() {
  if (spec_.conversion == 'c' || spec_.conversion == 'C') {
    const char ch = static_cast<char>(va_arg(arguments_.list, int));
    CountText(2);
    AppendPadded(std::string_view(&ch, 1));
    return;
  }
  const char* text = va_arg(arguments_.list, const char*);
  std::size_t length = kNullTextLength;
  if (text != nullptr) {
    // A text cut by a precision need not be terminated.
    length = spec_.precision > 0 ? strnlen(text, static_cast<std::size_t>(spec_.precision))
                                 : std::strlen(text);
  }
  CountText(std::max<long long>(static_cast<long long>(length), 1));
  if (spec_.precision >= 0) length = std::min(length, static_cast<std::size_t>(spec_.precision));
  AppendPadded(std::string_view(text != nullptr ? text : kNullText, length));
}

// Appends the conversion of one character (one or two units) of UTF-16 text to the ANSI code page;
// returns the number of units.
std::size_t AppendNarrow(std::string& narrow, const wchar_t* text) {
  const bool is_pair = (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
  const int units = is_pair ? 2 : 1;
  char bytes[8];
  const int count =
      WideCharToMultiByte(CP_ACP, 0, text, units, bytes, sizeof(bytes), nullptr, nullptr);
  narrow.append(bytes, static_cast<std::size_t>(std::max(count, 0)));
  return static_cast<std::size_t>(units);
}

void Formatter::AppendWideText() {
  std::string narrow;
  if (spec_.conversion == 'c' || spec_.conversion == 'C') {
    const wchar_t ch[2] = {static_cast<wchar_t>(va_arg(arguments_.list, int)), L'\0'};
    CountText(2);
    AppendNarrow(narrow, ch);
    AppendPadded(narrow);
    return;
  }
  const wchar_t* text = va_arg(arguments_.list, const wchar_t*);
  const std::size_t limit =
      spec_.precision < 0 ? SIZE_MAX : static_cast<std::size_t>(spec_.precision);
  if (text == nullptr) {
    CountText(kNullTextLength);
    AppendPadded(std::string_view(kNullText).substr(0, limit));
    return;
  }
  const std::size_t length = WideLength(text);
  CountText(std::max<long long>(static_cast<long long>(length), 1));
  // The precision counts bytes; a character that does not fit whole is left out.
  std::size_t fitting = 0;
  for (std::size_t i = 0; i < length && fitting < limit;) {
    i += AppendNarrow(narrow, text + i);
    if (narrow.size() <= limit) fitting = narrow.size();
    if (narrow.size() > limit) break;
  }
  AppendPadded(std::string_view(narrow).substr(0, fitting));
}

void Formatter::AppendPadded(std::string_view text) {
  const std::size_t width = static_cast<std::size_t>(spec_.width);
  const std::size_t padding = width > text.size() ? width - text.size() : 0;
  if (!spec_.left) result_.text.append(padding, ' ');
  result_.text.append(text);
  if (spec_.left) result_.text.append(padding, ' ');
}

// --- numbers ------------------------------------------------------------------------------------

long long Formatter::NextSigned() {
  switch (spec_.size) {
    case ArgumentSize::kChar:
      return static_cast<signed char>(va_arg(arguments_.list, int));
    case ArgumentSize::kShort:
      return static_cast<short>(va_arg(arguments_.list, int));
    case ArgumentSize::kLong:
      return va_arg(arguments_.list, long);
    case ArgumentSize::kLongLong:
      return va_arg(arguments_.list, long long);
    default:
      return va_arg(arguments_.list, int);
  }
}

unsigned long long Formatter::NextUnsigned() {
  switch (spec_.size) {
    case ArgumentSize::kChar:
      return static_cast<unsigned char>(va_arg(arguments_.list, unsigned int));
    case ArgumentSize::kShort:
      return static_cast<unsigned short>(va_arg(arguments_.list, unsigned int));
    case ArgumentSize::kLong:
      return va_arg(arguments_.list, unsigned long);
    case ArgumentSize::kLongLong:
      return va_arg(arguments_.list, unsigned long long);
    default:
      return va_arg(arguments_.list, unsigned int);
  }
}

// Appends a number as the C library prints it with the flags of the specification.
template <class Value>
void Formatter::Print(const char* size, Value value, char conversion) {
  char format[16];
  char* p = format;
  *p++ = '%';
  if (spec_.left) *p++ = '-';
  if (spec_.plus) *p++ = '+';
  if (spec_.blank) *p++ = ' ';
  if (spec_.alternate) *p++ = '#';
  if (spec_.zero) *p++ = '0';
  std::snprintf(p, static_cast<std::size_t>(format + sizeof(format) - p), "*.*%s%c", size,
                conversion);

  // A negative precision counts as none.
  char room[128];
  const int length = std::snprintf(room, sizeof(room), format, spec_.width, spec_.precision, value);
  if (length < 0) throw std::bad_alloc();
  const std::size_t count = static_cast<std::size_t>(length);
  if (count < sizeof(room)) {
    result_.text.append(room, count);
    return;
  }
  const std::size_t begin = result_.text.size();
  result_.text.resize(begin + count + 1);
  std::snprintf(&result_.text[begin], count + 1, format, spec_.width, spec_.precision, value);
  result_.text.resize(begin + count);
}

void Formatter::AppendSigned() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  Print("ll", NextSigned(), 'd');
}

void Formatter::AppendUnsigned() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  Print("ll", NextUnsigned(), spec_.conversion);
}

// A pointer is sixteen upper-case hexadecimal digits, as Windows prints it.
void Formatter::AppendPointer() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  char digits[17];
  std::snprintf(digits, sizeof(digits), "%016llX",
                static_cast<unsigned long long>(
                    reinterpret_cast<std::uintptr_t>(va_arg(arguments_.list, void*))));
  AppendPadded(digits);
}

void Formatter::AppendFloat() {
  if (spec_.conversion == 'f') {
    CountNumber(std::max(spec_.precision, 0) + 312LL);
  } else if (spec_.conversion != 'E') {
    CountNumber(std::max<long long>(WidthAndPrecision(), 128));
  }
  const double value = va_arg(arguments_.list, double);
  if (!std::isfinite(value)) spec_.zero = false;
  Print("", value, spec_.conversion);
}

}  // namespace

FormattedText FormatText(const char* format, va_list args) {
  return Formatter(format == nullptr ? "" : format, args).Run();
}

}  // namespace quarnfc

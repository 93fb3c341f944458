// SPDX-License-Identifier: MIT
// printf-style formatting.
//
//   item      = "%" flags [ width ] [ "." [ precision ] ] [ size ] conversion
//   flags     = any of "-" "+" " " "#" "0"
//   width     = digits | "*"          precision = digits | "*"
//   size      = "h" "hh" "l" "ll" "I" "I32" "I64" "z" "j" "t", and "F" "L" "N" without effect
//   conversion = "c" "C" "s" "S" "d" "i" "u" "x" "X" "o" "p" "e" "E" "f" "g" "G" "n"
//
// One pass over the format, by characters of the code page, into a growing buffer: the result can
// be longer than the estimate that is counted alongside, which decides only how large a buffer the
// string asks for. Numbers are in format_number.cpp. Deviations from the C library, so that the
// text is the same on every target: pointers are spelled as Windows does; "%n" writes nothing.
#include "core/text/format_text.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <quarnfc/qn_string.h>

#include "core/text/character.h"
#include "core/text/format_number.h"
#include "core/text/format_spec.h"
#include "core/text/string_buffer.h"

namespace quarnfc {
namespace {

constexpr std::string_view kNullText = "(null)";

std::string_view View(const CQNString& text) {
  return {static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength())};
}

// What a conversion character asks for.
enum class Conversion : unsigned char {
  kNone,
  kText,
  kSigned,
  kUnsigned,
  kPointer,
  kFloat,
  kNothing
};

constexpr std::array<Conversion, 256> kConversions = [] {
  std::array<Conversion, 256> conversions{};
  const auto set = [&conversions](std::string_view characters, Conversion conversion) {
    for (const char ch : characters) conversions[static_cast<unsigned char>(ch)] = conversion;
  };
  set("cCsS", Conversion::kText);
  set("di", Conversion::kSigned);
  set("uxXo", Conversion::kUnsigned);
  set("p", Conversion::kPointer);
  set("eEfgG", Conversion::kFloat);
  set("n", Conversion::kNothing);
  return conversions;
}();

class Formatter {
 public:
  Formatter(FormattedText& result, const char* format, va_list args)
      : result_(result), format_(format) {
    va_copy(arguments_.list, args);
  }
  ~Formatter() { va_end(arguments_.list); }
  Formatter(const Formatter&) = delete;
  Formatter& operator=(const Formatter&) = delete;

  // Returns the estimate.
  int Run() {
    while (*format_ != '\0') {
      if (*format_ != '%') {
        AppendCharacters();
      } else if (format_[1] == '%') {
        ++format_;
        Append(1);
      } else {
        AppendItem();
      }
    }
    return static_cast<int>(std::min<long long>(estimate_, INT_MAX));
  }

 private:
  // Up to the next "%" that is a character of its own, or the end.
  void AppendCharacters() {
    const char* end = format_;
    while (*end != '\0' && *end != '%') end += CharWidth(end);
    Append(end - format_);
  }

  void Append(std::ptrdiff_t length) {
    result_.Append({format_, static_cast<std::size_t>(length)});
    estimate_ += length;
    format_ += length;
  }

  void AppendItem();
  bool TakesWideText() const;
  void AppendText();
  void AppendWideText();
  void AppendSigned();
  void AppendUnsigned();
  void AppendPointer();
  void AppendFloat();
  void AppendNullText();
  void AppendPadded(std::string_view text) { AppendPadded(text, text.size()); }
  void AppendPadded(std::string_view text, std::size_t columns);

  long long NextSigned();
  unsigned long long NextUnsigned();

  std::size_t Precision() const { return static_cast<std::size_t>(spec_.precision); }
  // Whether the precision cuts a text at length. A text that is cut need not be terminated.
  bool IsCutAt(std::size_t length) const { return spec_.precision > 0 && length == Precision(); }

  // Estimates: of a text or a character, and of a number.
  void CountText(long long item);
  void CountNumber(long long item) { estimate_ += item; }
  long long WidthAndPrecision() const {
    return static_cast<long long>(spec_.width) + std::max(spec_.precision, 0);
  }

  FormattedText& result_;
  const char* format_;
  Arguments arguments_;
  FormatSpec spec_;
  long long estimate_ = 0;
};

void Formatter::AppendItem() {
  ++format_;
  spec_ = ReadFormatSpec(format_, arguments_);
  estimate_ += 2LL * spec_.alternates;
  switch (kConversions[static_cast<unsigned char>(spec_.conversion)]) {
    case Conversion::kText:
      TakesWideText() ? AppendWideText() : AppendText();
      break;
    case Conversion::kSigned:
      AppendSigned();
      break;
    case Conversion::kUnsigned:
      AppendUnsigned();
      break;
    case Conversion::kPointer:
      AppendPointer();
      break;
    case Conversion::kFloat:
      AppendFloat();
      break;
    case Conversion::kNothing:
      // Takes its argument; nothing is ever written through it.
      static_cast<void>(va_arg(arguments_.list, void*));
      break;
    case Conversion::kNone:
      // The character stands for itself, unless the format has ended.
      if (spec_.conversion != '\0') result_.Append(1, spec_.conversion);
      break;
  }
}

// A prefix decides; without one it is the upper-case conversions.
bool Formatter::TakesWideText() const {
  if (spec_.size == ArgumentSize::kLong) return true;
  return spec_.conversion < 'a' && spec_.size != ArgumentSize::kShort;
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
  if (text == nullptr) {
    AppendNullText();
    return;
  }
  std::size_t length = spec_.precision > 0 ? strnlen(text, Precision()) : std::strlen(text);
  CountText(std::max<long long>(static_cast<long long>(length), 1));
  if (spec_.precision == 0) length = 0;
  AppendPadded(std::string_view(text, length));
}

void Formatter::AppendWideText() {
  if (spec_.conversion == 'c' || spec_.conversion == 'C') {
    const wchar_t unit = static_cast<wchar_t>(va_arg(arguments_.list, int));
    CountText(2);
    AppendPadded(View(CQNString(&unit, 1)));
    return;
  }
  const wchar_t* text = va_arg(arguments_.list, const wchar_t*);
  if (text == nullptr) {
    AppendNullText();
    return;
  }
  std::size_t length = 0;
  while (!IsCutAt(length) && text[length] != L'\0') ++length;
  CountText(std::max<long long>(static_cast<long long>(length), 1));
  if (spec_.precision == 0) length = 0;
  // Width and precision count units, whatever the number of bytes they become.
  AppendPadded(View(CQNString(text, CheckedLength(length))), length);
}

void Formatter::AppendNullText() {
  CountText(static_cast<long long>(kNullText.size()));
  AppendPadded(spec_.precision < 0 ? kNullText : kNullText.substr(0, Precision()));
}

void Formatter::AppendPadded(std::string_view text, std::size_t columns) {
  const std::size_t width = spec_.Columns();
  const std::size_t padding = width > columns ? width - columns : 0;
  // The run-time pads texts with zeros as it does numbers.
  if (!spec_.left) result_.Append(padding, spec_.zero ? '0' : ' ');
  result_.Append(text);
  if (spec_.left) result_.Append(padding, ' ');
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

void Formatter::AppendSigned() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  quarnfc::AppendSigned(result_, spec_, NextSigned());
}

void Formatter::AppendUnsigned() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  quarnfc::AppendUnsigned(result_, spec_, NextUnsigned());
}

// A pointer is sixteen upper-case hexadecimal digits, as Windows prints it.
void Formatter::AppendPointer() {
  CountNumber(std::max<long long>(WidthAndPrecision(), 32));
  spec_.precision = 16;
  spec_.conversion = 'X';
  quarnfc::AppendUnsigned(result_, spec_,
                          reinterpret_cast<std::uintptr_t>(va_arg(arguments_.list, void*)));
}

void Formatter::AppendFloat() {
  if (spec_.conversion == 'f') {
    CountNumber(std::max(spec_.precision, 0) + 312LL);
  } else if (spec_.conversion != 'E') {
    CountNumber(std::max<long long>(WidthAndPrecision(), 128));
  }
  quarnfc::AppendFloat(result_, spec_, va_arg(arguments_.list, double));
}

}  // namespace

int FormatText(FormattedText& result, const char* format, va_list args) {
  return Formatter(result, format == nullptr ? "" : format, args).Run();
}

}  // namespace quarnfc

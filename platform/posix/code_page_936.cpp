// SPDX-License-Identifier: MIT
#include "platform/posix/code_page_936.h"

#include <iconv.h>

#include <cerrno>

#include "platform/posix/code_page_936_data.h"

namespace quarnfc::platform {

namespace {

constexpr std::uint16_t kDefaultCode = '?';
constexpr unsigned int kFirstTrail = 0x40;

// The C library's GBK converter, one pair at a time.
class GbkConverter {
 public:
  GbkConverter() : handle_(iconv_open("UTF-16LE", "GBK")) {}
  ~GbkConverter() {
    if (IsOpen()) {
      iconv_close(handle_);
    }
  }
  GbkConverter(const GbkConverter&) = delete;
  GbkConverter& operator=(const GbkConverter&) = delete;

  bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // The unit of a pair; false when it has none.
  bool Convert(unsigned int code, char16_t* unit) {
    char pair[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    unsigned char units[4] = {};
    char* source = pair;
    char* target = reinterpret_cast<char*>(units);
    std::size_t source_left = sizeof(pair);
    std::size_t target_left = sizeof(units);
    if (iconv(handle_, &source, &source_left, &target, &target_left) != 0 || source_left != 0 ||
        target_left != 2) {
      return false;
    }
    *unit = static_cast<char16_t>(units[0] | units[1] << 8);
    return true;
  }

 private:
  iconv_t handle_;
};

}  // namespace

const CodePage936& CodePage936::Instance() {
  static const CodePage936 instance;
  return instance;
}

CodePage936::CodePage936() {
  single_.fill(kDefaultUnit);
  double_.fill(kDefaultUnit);
  code_.fill(kDefaultCode);
  for (char16_t unit = 0; unit < 0x80; ++unit) {
    single_[unit] = unit;
    code_[unit] = unit;
  }
  const int saved_errno = errno;  // a pair without a character is no error of the conversion
  AddFromCLibrary();
  errno = saved_errno;
  AddUserDefined();
  AddBestFit();
}

void CodePage936::Add(unsigned int code, char16_t unit) {
  if (code <= 0xFF) {
    single_[code] = unit;
  } else {
    double_[PairIndex(code >> 8, code & 0xFF)] = unit;
  }
  code_[unit] = static_cast<std::uint16_t>(code);
}

void CodePage936::AddFromCLibrary() {
  GbkConverter converter;
  if (!converter.IsOpen()) {
    return;
  }
  for (unsigned int lead = kFirstLead; lead <= kLastLead; ++lead) {
    for (unsigned int trail = kFirstTrail; trail <= 0xFE; ++trail) {
      const unsigned int code = lead << 8 | trail;
      char16_t unit;
      if (converter.Convert(code, &unit)) {
        Add(code, unit);
      }
    }
  }
}

void CodePage936::AddUserDefined() {
  Add(0x80, 0x20AC);
  Add(0xFF, 0xF8F5);
  for (const UserDefinedRun& run : kUserDefinedRuns) {
    char16_t unit = run.first_unit;
    for (unsigned int code = run.first_code; code <= run.last_code; ++code) {
      if ((code & 0xFF) != 0x7F) {
        Add(code, unit++);
      }
    }
  }
}

void CodePage936::AddBestFit() {
  for (const BestFit& fit : kBestFits) {
    code_[fit.unit] = fit.code;
  }
}

}  // namespace quarnfc::platform

// Text as UTF-16, in which every character counts.
#ifndef QN_WIDE_TEXT_H_
#define QN_WIDE_TEXT_H_

#include <string>
#include <vector>

namespace qn {

// UTF-16 without a terminator.
using WideText = std::vector<wchar_t>;

WideText WideFromAnsi(const char* ansi);
WideText WideFromUtf8(const char* utf8);

// In the code page; characters that it lacks become its default character.
std::string AnsiFromWide(const WideText& wide);

inline std::string AnsiFromUtf8(const char* utf8) { return AnsiFromWide(WideFromUtf8(utf8)); }

}  // namespace qn

#endif  // QN_WIDE_TEXT_H_

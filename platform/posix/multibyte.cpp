// Characters of code page 936.
#include "core/text/code_page_936_case.h"
#include "core/text/multibyte_character.h"
#include "platform/posix/platform.h"

namespace quarnfc {

unsigned int ToLowerCharacter(unsigned int value) { return ToLowerIn936(value); }

unsigned int ToUpperCharacter(unsigned int value) { return ToUpperIn936(value); }

}  // namespace quarnfc

// A character code is a byte or lead << 8 | trail; other numbers, as those of bytes above 0x7F that
// were sign-extended, are no white space.
int _ismbcspace(unsigned int ch) {
  constexpr unsigned int kIdeographicSpace = 0xA1A1;
  return (ch >= '\t' && ch <= '\r') || ch == ' ' || ch == kIdeographicSpace ? 1 : 0;
}

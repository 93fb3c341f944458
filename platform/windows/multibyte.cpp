// Characters of the process ANSI code page.
#include "core/text/code_page_936_case.h"
#include "core/text/multibyte_character.h"
#include "platform/windows/platform.h"

namespace quarnfc {

namespace {

constexpr int kCodePage936 = 936;

}  // namespace

unsigned int ToLowerCharacter(unsigned int value) {
  return _getmbcp() == kCodePage936 ? ToLowerIn936(value) : _mbctolower(value);
}

unsigned int ToUpperCharacter(unsigned int value) {
  return _getmbcp() == kCodePage936 ? ToUpperIn936(value) : _mbctoupper(value);
}

}  // namespace quarnfc

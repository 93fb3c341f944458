// Upper and lower case of the characters of code page 936.
#ifndef QUARNFC_PLATFORM_CODE_PAGE_936_CASE_H_
#define QUARNFC_PLATFORM_CODE_PAGE_936_CASE_H_

namespace quarnfc {

// Take and return a character code: a byte, or lead << 8 | trail.
unsigned int ToLowerIn936(unsigned int value);
unsigned int ToUpperIn936(unsigned int value);

}  // namespace quarnfc

#endif  // QUARNFC_PLATFORM_CODE_PAGE_936_CASE_H_

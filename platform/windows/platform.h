// The Windows headers the library uses.
#ifndef QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_
#define QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <mbctype.h>
#include <mbstring.h>
#include <oleauto.h>

// <mbctype.h> defines short names that the C++ library uses as identifiers.
#undef _MS
#undef _MP
#undef _M1
#undef _M2

#endif  // QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_

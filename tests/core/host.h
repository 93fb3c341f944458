// What a test may need to know about the system it runs on.
#ifndef QUARNFC_TESTS_CORE_HOST_H_
#define QUARNFC_TESTS_CORE_HOST_H_

#if defined(_WIN32)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace host_test {

// Whether Windows functions are served by Wine, whose run-time functions deviate from the
// documented ones here and there.
inline bool RunsUnderWine() {
#if defined(_WIN32)
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
#else
  return false;
#endif
}

}  // namespace host_test

#endif  // QUARNFC_TESTS_CORE_HOST_H_

// SPDX-License-Identifier: MIT
// Platform functions that pass the door and then, when they are refused, fail as their headers say
// they fail.
#include "core/memory/memory.h"
#include "platform/code_page.h"
#include "platform/file.h"
#include "platform/system_string.h"
#include "tests/failing_memory/door.h"
#include "tests/failing_memory/linker_names.h"

namespace {

using quarnfc::platform::Encoding;
using quarnfc::platform::File;
using quarnfc::platform::FileMode;
using quarnfc::platform::SystemError;
using quarnfc::platform::Transferred;

constexpr SystemError kDiskFull = 112;

bool g_code_page_is_utf8 = false;

Encoding Meant(Encoding encoding) { return g_code_page_is_utf8 ? Encoding::kUtf8 : encoding; }

}  // namespace

failing::Utf8CodePage::Utf8CodePage() { g_code_page_is_utf8 = true; }

failing::Utf8CodePage::~Utf8CodePage() { g_code_page_is_utf8 = false; }

// Members of File as functions of the object.
SystemError RealOpen(File* file, const char* path, FileMode mode) REAL(OPEN_FILE);
SystemError WrappedOpen(File* file, const char* path, FileMode mode) WRAPPED(OPEN_FILE);
SystemError WrappedOpen(File* file, const char* path, FileMode mode) {
  return failing::IsRefused() ? quarnfc::platform::kTooManyOpenFiles : RealOpen(file, path, mode);
}

Transferred RealRead(File* file, void* buffer, std::size_t count) REAL(READ_FILE);
Transferred WrappedRead(File* file, void* buffer, std::size_t count) WRAPPED(READ_FILE);
Transferred WrappedRead(File* file, void* buffer, std::size_t count) {
  if (failing::IsRefused()) return {0, quarnfc::platform::kGeneralFailure};
  return RealRead(file, buffer, count);
}

Transferred RealWrite(File* file, const void* bytes, std::size_t count) REAL(WRITE_FILE);
Transferred WrappedWrite(File* file, const void* bytes, std::size_t count) WRAPPED(WRITE_FILE);
Transferred WrappedWrite(File* file, const void* bytes, std::size_t count) {
  return failing::IsRefused() ? Transferred{0, kDiskFull} : RealWrite(file, bytes, count);
}

// System strings are counted as blocks.
BSTR RealAllocSystemString(const wchar_t* source, unsigned int length) REAL(ALLOC_SYSTEM_STRING);
BSTR WrappedAllocSystemString(const wchar_t* source, unsigned int length)
    WRAPPED(ALLOC_SYSTEM_STRING);
BSTR WrappedAllocSystemString(const wchar_t* source, unsigned int length) {
  BSTR const string = failing::IsRefused() ? nullptr : RealAllocSystemString(source, length);
  if (string != nullptr) failing::CountBlock(1);
  return string;
}

bool RealReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length)
    REAL(REALLOC_SYSTEM_STRING);
bool WrappedReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length)
    WRAPPED(REALLOC_SYSTEM_STRING);
bool WrappedReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length) {
  const bool is_new = string == nullptr;
  if (failing::IsRefused() || !RealReallocSystemString(string, source, length)) return false;
  if (is_new) failing::CountBlock(1);
  return true;
}

void RealFreeSystemString(BSTR string) noexcept REAL(FREE_SYSTEM_STRING);
void WrappedFreeSystemString(BSTR string) noexcept WRAPPED(FREE_SYSTEM_STRING);
void WrappedFreeSystemString(BSTR string) noexcept {
  if (string != nullptr) failing::CountBlock(-1);
  RealFreeSystemString(string);
}

int RealToUtf16(Encoding from, const char* source, int length, wchar_t* destination, int capacity)
    REAL(TO_UTF16);
int WrappedToUtf16(Encoding from, const char* source, int length, wchar_t* destination,
                   int capacity) WRAPPED(TO_UTF16);
int WrappedToUtf16(Encoding from, const char* source, int length, wchar_t* destination,
                   int capacity) {
  if (failing::ConverterIsRefused()) return 0;
  return RealToUtf16(Meant(from), source, length, destination, capacity);
}

int RealFromUtf16(Encoding to, const wchar_t* source, int length, char* destination, int capacity)
    REAL(FROM_UTF16);
int WrappedFromUtf16(Encoding to, const wchar_t* source, int length, char* destination,
                     int capacity) WRAPPED(FROM_UTF16);
int WrappedFromUtf16(Encoding to, const wchar_t* source, int length, char* destination,
                     int capacity) {
  if (failing::ConverterIsRefused()) return 0;
  return RealFromUtf16(Meant(to), source, length, destination, capacity);
}

// MultiByteToWideChar and WideCharToMultiByte for code page 936 and UTF-8.
#include <climits>
#include <cstring>

#include "platform/posix/code_page_936.h"
#include "platform/posix/conversion_output.h"
#include "platform/posix/platform.h"
#include "platform/posix/utf8.h"

namespace {

using quarnfc::BufferOutput;
using quarnfc::CodePage936;
using quarnfc::CountingOutput;

int Fail(DWORD error) {
  SetLastError(error);
  return 0;
}

// What both directions check; 0 when the arguments make sense.
DWORD ArgumentError(UINT code_page, DWORD flags, const void* source, int source_length,
                    const void* destination, int capacity) {
  if (code_page != CP_ACP && code_page != CP_UTF8) {
    return ERROR_INVALID_PARAMETER;
  }
  if (source == nullptr || source_length == 0 || source == destination || capacity < 0 ||
      (capacity > 0 && destination == nullptr)) {
    return ERROR_INVALID_PARAMETER;
  }
  return flags != 0 ? ERROR_INVALID_FLAGS : 0;
}

// The length of source, its terminator included when source_length is negative.
template <typename Unit>
std::size_t SourceLength(const Unit* source, int source_length) {
  if (source_length > 0) {
    return static_cast<std::size_t>(source_length);
  }
  std::size_t length = 0;
  while (source[length] != 0) {
    ++length;
  }
  return length + 1;
}

// Runs convert on the output that is asked for and returns the size of the result.
template <typename Unit, typename Convert>
int Run(Unit* destination, int capacity, Convert convert) {
  std::size_t size;
  if (capacity == 0) {
    CountingOutput output;
    convert(output);
    size = output.size();
  } else {
    BufferOutput<Unit> output(destination, static_cast<std::size_t>(capacity));
    if (!convert(output)) {
      return Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    size = output.size();
  }
  return size <= INT_MAX ? static_cast<int>(size) : Fail(ERROR_INVALID_PARAMETER);
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR source, int sourceLength,
                        LPWSTR destination, int capacity) {
  if (const DWORD error =
          ArgumentError(codePage, flags, source, sourceLength, destination, capacity)) {
    return Fail(error);
  }
  const auto* begin = reinterpret_cast<const unsigned char*>(source);
  const unsigned char* end = begin + SourceLength(source, sourceLength);
  return Run(destination, capacity, [=](auto& output) {
    return codePage == CP_UTF8 ? quarnfc::DecodeUtf8(begin, end, output)
                               : CodePage936::Instance().Decode(begin, end, output);
  });
}

int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR source, int sourceLength,
                        LPSTR destination, int capacity, LPCSTR defaultChar, BOOL* usedDefault) {
  if (const DWORD error =
          ArgumentError(codePage, flags, source, sourceLength, destination, capacity)) {
    return Fail(error);
  }
  if (defaultChar != nullptr || usedDefault != nullptr) {
    return Fail(ERROR_INVALID_PARAMETER);
  }
  const wchar_t* end = source + SourceLength(source, sourceLength);
  return Run(destination, capacity, [=](auto& output) {
    return codePage == CP_UTF8 ? quarnfc::EncodeUtf8(source, end, output)
                               : CodePage936::Instance().Encode(source, end, output);
  });
}

BOOL CharToOemA(LPCSTR source, LPSTR destination) {
  if (source == nullptr || destination == nullptr) {
    return 0;
  }
  std::memmove(destination, source, std::strlen(source) + 1);
  return 1;
}

BOOL OemToCharA(LPCSTR source, LPSTR destination) { return CharToOemA(source, destination); }

// SPDX-License-Identifier: MIT
#include "platform/code_page.h"

#include <algorithm>
#include <climits>

#include "platform/posix/code_page_936.h"
#include "platform/posix/conversion_output.h"
#include "platform/posix/utf8.h"

namespace quarnfc::platform {

namespace {

// What both directions ask of their arguments.
bool IsConvertible(const void* source, int length, const void* destination, int capacity) {
  return source != nullptr && length != 0 && source != destination && capacity >= 0 &&
         (capacity == 0 || destination != nullptr);
}

// The length of source, its terminator included when length is negative.
template <typename Unit>
std::size_t SourceLength(const Unit* source, int length) {
  if (length > 0) return static_cast<std::size_t>(length);
  const Unit* end = source;
  while (*end != 0) ++end;
  return static_cast<std::size_t>(end - source) + 1;
}

// Runs convert on the output that is asked for and returns the size of the result.
template <typename Unit, typename Convert>
int Run(Unit* destination, int capacity, Convert convert) {
  if (capacity == 0) {
    CountingOutput output;
    convert(output);
    return output.size() <= INT_MAX ? static_cast<int>(output.size()) : 0;
  }
  BufferOutput<Unit> output(destination, static_cast<std::size_t>(capacity));
  return convert(output) ? static_cast<int>(output.size()) : 0;
}

}  // namespace

Encoding PathEncoding() { return Encoding::kUtf8; }

int ToUtf16(Encoding from, const char* source, int length, wchar_t* destination, int capacity) {
  if (!IsConvertible(source, length, destination, capacity)) return 0;
  const auto* begin = reinterpret_cast<const unsigned char*>(source);
  const unsigned char* end = begin + SourceLength(source, length);
  return Run(destination, capacity, [=](auto& output) {
    return from == Encoding::kUtf8 ? DecodeUtf8(begin, end, output)
                                   : CodePage936::Instance().Decode(begin, end, output);
  });
}

int FromUtf16(Encoding to, const wchar_t* source, int length, char* destination, int capacity) {
  if (!IsConvertible(source, length, destination, capacity)) return 0;
  const wchar_t* end = source + SourceLength(source, length);
  return Run(destination, capacity, [=](auto& output) {
    return to == Encoding::kUtf8 ? EncodeUtf8(source, end, output)
                                 : CodePage936::Instance().Encode(source, end, output);
  });
}

std::size_t FindInvalidAnsi(const char* source, std::size_t length) {
  const CodePage936& page = CodePage936::Instance();
  const auto byte = [=](std::size_t i) { return static_cast<unsigned char>(source[i]); };
  for (std::size_t i = 0; i < length; ++i) {
    if (!CodePage936::IsLead(byte(i))) continue;
    if (i + 1 == length || !page.Has(byte(i), byte(i + 1))) return i;
    ++i;
  }
  return length;
}

std::size_t FindLostInAnsi(const wchar_t* source, std::size_t length) {
  const CodePage936& page = CodePage936::Instance();
  const wchar_t* const end = source + length;
  const wchar_t* const lost = std::find_if(
      source, end, [&](wchar_t unit) { return !page.Has(static_cast<char16_t>(unit)); });
  return static_cast<std::size_t>(lost - source);
}

// ANSI and OEM are the same code page here.
void ConvertAnsiToOem(char*) {}

void ConvertOemToAnsi(char*) {}

bool IsLeadByte(unsigned char byte) { return CodePage936::IsLead(byte); }

bool IsCharacter(unsigned char lead, unsigned char trail) {
  return CodePage936::Instance().Has(lead, trail);
}

bool IsSpace(unsigned int code) {
  constexpr unsigned int kIdeographicSpace = 0xA1A1;
  return (code >= '\t' && code <= '\r') || code == ' ' || code == kIdeographicSpace;
}

bool AnsiIsCodePage936() { return true; }

unsigned int ToLowerCase(unsigned int code) { return code; }

unsigned int ToUpperCase(unsigned int code) { return code; }

}  // namespace quarnfc::platform

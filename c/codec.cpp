// SPDX-License-Identifier: MIT
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/c/codec.h>
#include <quarnfc/crc64.h>
#include <quarnfc/hmac_sha256.h>
#include <quarnfc/md5.h>

#include <climits>
#include <cstring>
#include <new>

#include "c/guarded.h"
#include "core/memory/memory.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::GuardedNew;

constexpr int kMd5Digits = 32;
constexpr int kSha256Size = 32;

const unsigned char* Bytes(const void* data) { return static_cast<const unsigned char*>(data); }

unsigned int CheckedSize(size_t size, size_t limit = UINT_MAX) {
  if (size > limit) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the data is too long");
  return static_cast<unsigned int>(size);
}

// A text that an encoder has made; it gives null when memory is exhausted.
char* CheckedText(char* text) {
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

template <class Decode>
unsigned char* Decoded(const char* text, size_t* size, const Decode& decode) {
  *Given(size) = 0;
  const unsigned int length = CheckedSize(std::strlen(Given(text)));
  unsigned char* data = nullptr;
  *size = static_cast<size_t>(decode(text, length, &data));
  if (data == nullptr) {
    throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the text has a character outside the alphabet");
  }
  return data;
}

int Hmac(const void* key, size_t key_size, const void* data, size_t size, unsigned char* digest) {
  const auto key_count = static_cast<int>(CheckedSize(key_size, INT_MAX));
  const auto data_count = static_cast<int>(CheckedSize(size));  // taken as unsigned
  int length = kSha256Size;
  QNHMACSHA::qnHMAC_SHA256(static_cast<const char*>(key), key_count, data, data_count,
                           reinterpret_cast<char*>(Given(digest)), &length);
  return 1;
}

}  // namespace

char* qncBase64Encode(const void* data, size_t size, CQNObject** error) {
  return GuardedNew(error, [=] {
    return CheckedText(QNBase64::qnEncodeBase64A(Bytes(data), CheckedSize(size)));
  });
}

char* qncBase32Encode(const void* data, size_t size, CQNObject** error) {
  return GuardedNew(error, [=] {
    return CheckedText(QNBase32::qnEncodeBase32A(Bytes(data), CheckedSize(size)));
  });
}

unsigned char* qncBase64Decode(const char* text, size_t* size, CQNObject** error) {
  return GuardedNew(error, [=] { return Decoded(text, size, QNBase64::qnDecodeBase64A); });
}

unsigned char* qncBase32Decode(const char* text, size_t* size, CQNObject** error) {
  return GuardedNew(error, [=] { return Decoded(text, size, QNBase32::qnDecodeBase32A); });
}

char* qncMd5(const void* data, size_t size, CQNObject** error) {
  return GuardedNew(error, [=] {
    const unsigned int count = CheckedSize(size);
    char* text = quarnfc::AllocChars(kMd5Digits + 1);
    QNMD5::qnGetMD5StrLowerA(data, count, text);
    return text;
  });
}

char* qncCrc64(const void* data, size_t size, CQNObject** error) {
  return GuardedNew(
      error, [=] { return CheckedText(QNCRC64::qnGetCRC64StrA(Bytes(data), CheckedSize(size))); });
}

int qncHmacSha256(const void* key, size_t key_size, const void* data, size_t size,
                  unsigned char* digest, CQNObject** error) {
  return Guarded(error, 0, [=] { return Hmac(key, key_size, data, size, digest); });
}

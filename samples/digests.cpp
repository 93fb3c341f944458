// SPDX-License-Identifier: MIT
// Digests of a text, and one of them as Base64.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <cstring>

int main() {
  const char* const text = "123456789";
  const auto size = static_cast<unsigned int>(std::strlen(text));
  const auto* const bytes = reinterpret_cast<const unsigned char*>(text);

  char md5[33];
  QNMD5::qnGetMD5StrLowerA(text, size, md5);
  char* const crc = QNCRC64::qnGetCRC64StrA(bytes, size);
  std::printf("MD5    %s\nCRC-64 %s\n", md5, crc);
  const bool as_published = std::strcmp(crc, "66A2364420E6C605") == 0;
  qnFreeMem(crc);

  char hmac[32];
  int length = sizeof(hmac);
  QNHMACSHA::qnHMAC_SHA256("key", 3, text, static_cast<int>(size), hmac, &length);
  char* const base64 = QNBase64::qnEncodeBase64A(reinterpret_cast<unsigned char*>(hmac), length);
  std::printf("HMAC   %s\n", base64);

  unsigned char* decoded = nullptr;
  const int count = QNBase64::qnDecodeBase64A(base64, 0, &decoded);
  const bool there_and_back = count == length && std::memcmp(decoded, hmac, length) == 0;
  qnFreeMem(decoded);
  qnFreeMem(base64);
  return as_published && there_and_back ? 0 : 1;
}

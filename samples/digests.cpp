// SPDX-License-Identifier: MIT
// Digests of a text, one of them as Base64, and a standard digest of a message in pieces.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <cstring>

namespace {

// What sha256sum prints for the pieces one after the other.
bool PrintSha256InPieces() {
  CQNSHA256Stream stream;
  for (const char* piece : {"123", "", "456789"}) stream.Update(piece, std::strlen(piece));
  unsigned char digest[CQNSHA256Stream::eDigestBytes];
  stream.Finish(digest);
  const CQNString hex = QNDigestUtils::HexText(digest, CQNSHA256Stream::eDigestBytes, false);
  std::printf("SHA    %s\n", static_cast<const char*>(hex));
  return hex == "15e2b0d3c33891ebb0f1ef609ec419420c20e320ce94c65fbc8c3312448eb225";
}

}  // namespace

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
  return as_published && there_and_back && PrintSha256InPieces() ? 0 : 1;
}

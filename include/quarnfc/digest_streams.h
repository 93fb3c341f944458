// SPDX-License-Identifier: MIT
// Digests of messages that arrive piece by piece: files, network streams, anything too large to
// hold.
//
//   CQNMD5Stream            MD5 as RFC 1321 has it, what md5sum and other programs print
//   CQNSHA256Stream         SHA-256 (FIPS 180-4)
//   CQNHMACSHA256Stream     HMAC (RFC 2104) with SHA-256
//   CQNPackedMD5Stream      QNMD5's own form, with its packing of bytes of 0x80 and more
//   CQNCRC64Stream          QNCRC64's value
//
// All work alike: Update appends bytes, in pieces of any size; Finish stores the digest and starts
// the next message. Digest is the three in one call. The pieces do not matter: what is digested is
// the message they make together.
//
// Plain values: copyable bit for bit (a copy goes on by itself), no resources, nothing allocates or
// throws. A null data counts as no bytes; a null digest is ignored, but the message ends. Different
// objects may be used by different threads at once.
//
// Implemented in codec/digest_streams.cpp.
//
// Example:
//   CQNSHA256Stream stream;
//   stream.Update("a", 1);
//   stream.Update("bc", 2);
//   unsigned char digest[CQNSHA256Stream::eDigestBytes];
//   stream.Finish(digest);
//   QNDigestUtils::HexText(digest, 4, false);    // == "ba7816bf"
#ifndef QUARNFC_DIGEST_STREAMS_H_
#define QUARNFC_DIGEST_STREAMS_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>

#include <cstddef>

// Standard MD5. It is no protection against anybody who wants two messages with one digest.
class QN_API CQNMD5Stream {
 public:
  enum : int { eDigestBytes = 16 };

  CQNMD5Stream();

  // Drops what was appended and starts a new message.
  void Init();

  // Appends size bytes, which stay the caller's.
  void Update(const void* data, std::size_t size);

  // Stores the 16 bytes of the digest and starts a new message.
  void Finish(unsigned char* digest);

  // Stores the digest of size bytes.
  static void Digest(const void* data, std::size_t size, unsigned char* digest);

 private:
  unsigned __int64 state_[13];
};

// SHA-256.
class QN_API CQNSHA256Stream {
 public:
  enum : int { eDigestBytes = 32 };

  CQNSHA256Stream();

  // Drops what was appended and starts a new message.
  void Init();

  // Appends size bytes, which stay the caller's.
  void Update(const void* data, std::size_t size);

  // Stores the 32 bytes of the digest and starts a new message.
  void Finish(unsigned char* digest);

  // Stores the digest of size bytes.
  static void Digest(const void* data, std::size_t size, unsigned char* digest);

 private:
  unsigned __int64 state_[13];
};

// HMAC-SHA256 with one key for any number of messages.
class QN_API CQNHMACSHA256Stream {
 public:
  enum : int { eDigestBytes = 32 };

  // A stream with the empty key.
  CQNHMACSHA256Stream();

  // A key of keySize bytes, which stays the caller's; a null key is the empty one. A copy of what
  // follows from the key, not the key itself, is kept in the object.
  CQNHMACSHA256Stream(const void* key, std::size_t keySize);

  // Drops what was appended and starts a new message with another key.
  void Init(const void* key, std::size_t keySize);

  // Appends size bytes, which stay the caller's.
  void Update(const void* data, std::size_t size);

  // Stores the 32 bytes of the digest and starts a new message with the same key.
  void Finish(unsigned char* digest);

  // Stores the digest of size bytes.
  static void Digest(const void* key, std::size_t keySize, const void* data, std::size_t size,
                     unsigned char* digest);

 private:
  unsigned __int64 keyed_[26];  // as the key leaves it, for the next message
  unsigned __int64 state_[26];
};

// MD5 with QNMD5's packing: Finish stores what qnGetMD5StrLowerA spells.
class QN_API CQNPackedMD5Stream {
 public:
  enum : int { eDigestBytes = 16 };

  CQNPackedMD5Stream();

  // Drops what was appended and starts a new message.
  void Init();

  // Appends size bytes, which stay the caller's.
  void Update(const void* data, std::size_t size);

  // Stores the 16 bytes of the digest and starts a new message.
  void Finish(unsigned char* digest);

  // Stores the digest of size bytes.
  static void Digest(const void* data, std::size_t size, unsigned char* digest);

 private:
  unsigned __int64 state_[13];
};

// CRC-64 as QNCRC64 has it: deliberately not inverted at the end.
class QN_API CQNCRC64Stream {
 public:
  CQNCRC64Stream();

  // Drops what was appended and starts a new message.
  void Init();

  // Appends size bytes, which stay the caller's.
  void Update(const void* data, std::size_t size);

  // The value, whose 16 upper-case hexadecimal digits are the text of qnGetCRC64StrA. Starts a new
  // message.
  unsigned __int64 Finish();

  // The value of size bytes.
  static unsigned __int64 Digest(const void* data, std::size_t size);

 private:
  unsigned __int64 state_;
};

namespace QNDigestUtils {

// Bytes as hexadecimal digits, two for each byte, those above 9 in upper or lower case. Empty for a
// null digest or a size below 1.
QN_API CQNString HexText(const unsigned char* digest, int size, bool upperCase);

}  // namespace QNDigestUtils

#endif  // QUARNFC_DIGEST_STREAMS_H_

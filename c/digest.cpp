// SPDX-License-Identifier: MIT
#include <quarnfc/c/digest.h>
#include <quarnfc/digest_streams.h>

#include <variant>

#include "c/guarded.h"

struct QncDigest {
  std::variant<CQNMD5Stream, CQNSHA256Stream, CQNHMACSHA256Stream, CQNPackedMD5Stream,
               CQNCRC64Stream>
      stream;
};

namespace {

using quarnfc::c::Failure;
using quarnfc::c::Given;
using quarnfc::c::GuardedNew;

QncDigest* NewDigest(int kind, const void* key, size_t key_size) {
  switch (kind) {
    case QNC_DIGEST_MD5:
      return new QncDigest{CQNMD5Stream()};
    case QNC_DIGEST_SHA256:
      return new QncDigest{CQNSHA256Stream()};
    case QNC_DIGEST_HMAC_SHA256:
      return new QncDigest{CQNHMACSHA256Stream(key, key_size)};
    case QNC_DIGEST_PACKED_MD5:
      return new QncDigest{CQNPackedMD5Stream()};
    case QNC_DIGEST_CRC64:
      return new QncDigest{CQNCRC64Stream()};
  }
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: unknown kind of digest");
}

template <class Stream>
CQNString Finished(Stream& stream) {
  unsigned char digest[Stream::eDigestBytes];
  stream.Finish(digest);
  return QNDigestUtils::HexText(digest, sizeof(digest), false);
}

// The digits of a number: its bytes, the highest first.
CQNString Finished(CQNCRC64Stream& stream) {
  unsigned __int64 value = stream.Finish();
  unsigned char bytes[sizeof(value)];
  for (size_t i = sizeof(value); i > 0; value >>= 8) bytes[--i] = static_cast<unsigned char>(value);
  return QNDigestUtils::HexText(bytes, sizeof(bytes), true);
}

}  // namespace

QncDigest* qncDigestNew(int kind, const void* key, size_t key_size, CQNObject** error) {
  return GuardedNew(error, [=] { return NewDigest(kind, key, key_size); });
}

void qncDigestFree(QncDigest* digest) { delete digest; }

void qncDigestUpdate(QncDigest* digest, const void* data, size_t size) {
  if (digest == nullptr) return;
  std::visit([=](auto& stream) { stream.Update(data, size); }, digest->stream);
}

char* qncDigestFinish(QncDigest* digest, CQNObject** error) {
  return GuardedNew(error, [=] {
    return std::visit([](auto& stream) { return Finished(stream); }, Given(digest)->stream)
        .AllocANSIString();
  });
}

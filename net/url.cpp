// SPDX-License-Identifier: MIT
#include <quarnfc/url.h>

#include <cstring>
#include <memory>
#include <new>

#include "platform/internet.h"

namespace {

constexpr DWORD kCanonicaliseFlags =
    ICU_NO_ENCODE | ICU_NO_META | ICU_ENCODE_SPACES_ONLY | ICU_BROWSER_MODE;

DWORD ServiceOfScheme(INTERNET_SCHEME scheme) {
  switch (scheme) {
    case INTERNET_SCHEME_FTP:
      return eServiceFtp;
    case INTERNET_SCHEME_GOPHER:
      return eServiceGopher;
    case INTERNET_SCHEME_HTTP:
      return eServiceHttp;
    case INTERNET_SCHEME_HTTPS:
      return eServiceHttps;
    case INTERNET_SCHEME_FILE:
      return eServiceFile;
    case INTERNET_SCHEME_NEWS:
      return eServiceNews;
    case INTERNET_SCHEME_MAILTO:
      return eServiceMailto;
    default:
      return eServiceUnknown;
  }
}

// The buffer of a string lent to the platform for one part of the URL. The string keeps its text
// when nothing is written, and what is behind that text is zero, so that measuring the part never
// leaves the buffer.
class PartBuffer {
 public:
  PartBuffer(CQNString& text, int capacity) : text_(text) {
    const int length = text.GetLength();
    buffer_ = text.GetBuffer(capacity + 1);
    if (length <= capacity) {
      std::memset(buffer_ + length, 0, static_cast<std::size_t>(capacity + 2 - length));
    }
  }
  ~PartBuffer() { text_.ReleaseBuffer(static_cast<int>(std::strlen(buffer_))); }
  PartBuffer(const PartBuffer&) = delete;
  PartBuffer& operator=(const PartBuffer&) = delete;

  char* Get() const { return buffer_; }

 private:
  CQNString& text_;
  char* buffer_;
};

// The canonical form of a URL, in a local buffer or, when it is longer, on the heap.
class CanonicalUrl {
 public:
  bool Make(const char* url, DWORD flags) {
    DWORD needed = INTERNET_MAX_URL_LENGTH;
    if (InternetCanonicalizeUrlA(url, local_, &needed, flags)) return true;
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return false;
    heap_.reset(new (std::nothrow) char[needed + 1]());
    return heap_ != nullptr && InternetCanonicalizeUrlA(url, heap_.get(), &needed, flags);
  }

  const char* Get() const { return heap_ != nullptr ? heap_.get() : local_; }

 private:
  char local_[INTERNET_MAX_URL_LENGTH + 1] = {};
  std::unique_ptr<char[]> heap_;
};

// What is done about percent escapes in the object.
struct Unescaping {
  DWORD crack_flags;   // by the platform while it splits the URL
  bool in_the_object;  // by us afterwards, up to the query or fragment

  Unescaping(DWORD flags, bool object_wanted) : crack_flags(0), in_the_object(false) {
    if ((flags & (ICU_ESCAPE | ICU_DECODE)) == 0 || !object_wanted) return;
    in_the_object = (flags & ICU_BROWSER_MODE) != 0;
    if (!in_the_object) crack_flags = ICU_ESCAPE;
  }
};

bool UnescapeObject(URL_COMPONENTSA& parts) {
  const HRESULT result = UrlUnescapeA(parts.lpszUrlPath, nullptr, nullptr,
                                      URL_UNESCAPE_INPLACE | URL_DONT_UNESCAPE_EXTRA_INFO);
  if (FAILED(result)) return false;
  parts.dwUrlPathLength = static_cast<DWORD>(std::strlen(parts.lpszUrlPath));
  return true;
}

int Parse(const char* url, URL_COMPONENTSA& parts, DWORD& serviceType, unsigned short& port,
          DWORD flags) {
  const Unescaping unescaping(flags, parts.dwUrlPathLength != 0);
  CanonicalUrl canonical;
  if (!canonical.Make(url, flags & kCanonicaliseFlags)) return 0;

  const BOOL cracked = InternetCrackUrlA(canonical.Get(), 0, unescaping.crack_flags, &parts);
  const DWORD error = GetLastError();
  if (unescaping.in_the_object && !UnescapeObject(parts)) return 0;
  if (cracked) {
    port = parts.nPort;
    serviceType = ServiceOfScheme(parts.nScheme);
  } else {
    SetLastError(error);
  }
  return cracked;
}

URL_COMPONENTSA PartsOf(const PartBuffer& server, DWORD serverLength, const PartBuffer& object,
                        DWORD objectLength) {
  URL_COMPONENTSA parts = {};
  parts.dwStructSize = sizeof(parts);
  parts.lpszHostName = server.Get();
  parts.dwHostNameLength = serverLength;
  parts.lpszUrlPath = object.Get();
  parts.dwUrlPathLength = objectLength;
  return parts;
}

}  // namespace

int qnParseURL(const char* url, DWORD& serviceType, CQNString& server, CQNString& object,
               unsigned short& port) {
  constexpr int kPartLength = INTERNET_MAX_URL_LENGTH;

  serviceType = eServiceUnknown;
  if (url == nullptr) return 0;
  const CQNString text(url);  // url may be the text of a string that is about to receive a part
  const PartBuffer server_part(server, kPartLength);
  const PartBuffer object_part(object, kPartLength);
  URL_COMPONENTSA parts = PartsOf(server_part, kPartLength, object_part, kPartLength);
  return Parse(text, parts, serviceType, port, ICU_BROWSER_MODE);
}

int qnParseURLEx(const char* url, DWORD& serviceType, CQNString& server, CQNString& object,
                 unsigned short& port, CQNString& user, CQNString& password, DWORD flags) {
  constexpr int kServerLength = 256;
  constexpr int kObjectLength = 2048;
  constexpr int kCredentialLength = 128;

  serviceType = eServiceUnknown;
  if (url == nullptr) return 0;
  const CQNString text(url);
  const PartBuffer server_part(server, kServerLength);
  const PartBuffer object_part(object, kObjectLength);
  const PartBuffer user_part(user, kCredentialLength);
  const PartBuffer password_part(password, kCredentialLength);
  URL_COMPONENTSA parts = PartsOf(server_part, kServerLength, object_part, kObjectLength);
  parts.lpszUserName = user_part.Get();
  parts.dwUserNameLength = kCredentialLength;
  parts.lpszPassword = password_part.Get();
  parts.dwPasswordLength = kCredentialLength;
  return Parse(text, parts, serviceType, port, flags);
}

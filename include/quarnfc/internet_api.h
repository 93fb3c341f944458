// SPDX-License-Identifier: MIT
// The internet functions, records and numbers that hosts use together with the HTTP client, under
// the names they have on Windows.
//
// On Windows they are the platform's own: include <windows.h> and <wininet.h>, this header adds
// nothing there. Elsewhere the library supplies them, with the contracts documented below, and
// defines QUARNFC_SUPPLIES_INTERNET_API, so that one host source serves every target. Only what is
// listed here exists; everything else of that interface is refused with
// ERROR_INTERNET_INVALID_OPTION (12009) or ERROR_INTERNET_UNRECOGNIZED_SCHEME (12006).
//
// Text is in code page 936. Functions that fail return 0 (or null) and leave the reason to
// GetLastError, which is kept for each thread.
//
// Threads: any function may be called on any thread, but one handle is used by one thread at a
// time, except that InternetCloseHandle may be called on a handle in use: the call under way then
// fails with ERROR_INTERNET_OPERATION_CANCELLED.
//
// Implemented in platform/posix/internet: session.cpp, options.cpp, cookies.cpp, query.cpp and
// request_functions.cpp.
//
// Example:
//   const HINTERNET session =
//       InternetOpenA("MapClient", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
//   const HINTERNET page =
//       InternetOpenUrlA(session, "http://maps.example/", nullptr, 0, INTERNET_FLAG_RELOAD, 0);
//   DWORD status = 0;
//   DWORD length = sizeof(status);
//   constexpr DWORD kWanted = HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER;
//   if (page != nullptr && HttpQueryInfoA(page, kWanted, &status, &length, nullptr) != 0) {
//     std::printf("%u\n", static_cast<unsigned int>(status));
//   }
//   InternetCloseHandle(page);
//   InternetCloseHandle(session);
#ifndef QUARNFC_INTERNET_API_H_
#define QUARNFC_INTERNET_API_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>

#if defined(QUARNFC_SUPPLIES_INTERNET_API)

// --- numbers ----------------------------------------------------------------------------------

// Error codes.
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;  // libcurl is not installed
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
constexpr DWORD ERROR_INTERNET_OUT_OF_HANDLES = 12001;
constexpr DWORD ERROR_INTERNET_TIMEOUT = 12002;
constexpr DWORD ERROR_INTERNET_EXTENDED_ERROR = 12003;
constexpr DWORD ERROR_INTERNET_INTERNAL_ERROR = 12004;
constexpr DWORD ERROR_INTERNET_INVALID_URL = 12005;
constexpr DWORD ERROR_INTERNET_UNRECOGNIZED_SCHEME = 12006;
constexpr DWORD ERROR_INTERNET_NAME_NOT_RESOLVED = 12007;
constexpr DWORD ERROR_INTERNET_INVALID_OPTION = 12009;
constexpr DWORD ERROR_INTERNET_INVALID_OPERATION = 12016;
constexpr DWORD ERROR_INTERNET_OPERATION_CANCELLED = 12017;
constexpr DWORD ERROR_INTERNET_INCORRECT_HANDLE_TYPE = 12018;
constexpr DWORD ERROR_INTERNET_INCORRECT_HANDLE_STATE = 12019;
constexpr DWORD ERROR_INTERNET_CANNOT_CONNECT = 12029;
constexpr DWORD ERROR_INTERNET_CONNECTION_ABORTED = 12030;
constexpr DWORD ERROR_INTERNET_CONNECTION_RESET = 12031;
constexpr DWORD ERROR_INTERNET_SEC_CERT_DATE_INVALID = 12037;
constexpr DWORD ERROR_INTERNET_SEC_CERT_CN_INVALID = 12038;
constexpr DWORD ERROR_INTERNET_HTTPS_TO_HTTP_ON_REDIR = 12040;
constexpr DWORD ERROR_INTERNET_INVALID_CA = 12045;
constexpr DWORD ERROR_HTTP_HEADER_NOT_FOUND = 12150;
constexpr DWORD ERROR_HTTP_INVALID_SERVER_RESPONSE = 12152;
constexpr DWORD ERROR_HTTP_INVALID_HEADER = 12153;
constexpr DWORD ERROR_HTTP_INVALID_QUERY_REQUEST = 12154;
constexpr DWORD ERROR_HTTP_HEADER_ALREADY_EXISTS = 12155;
constexpr DWORD ERROR_HTTP_REDIRECT_FAILED = 12156;
constexpr DWORD ERROR_INTERNET_SECURITY_CHANNEL_ERROR = 12157;

// How a session reaches servers: through the proxies of the system (the environment variables
// http_proxy, https_proxy and no_proxy), directly, or through the proxy that is named.
constexpr DWORD INTERNET_OPEN_TYPE_PRECONFIG = 0;
constexpr DWORD INTERNET_OPEN_TYPE_DIRECT = 1;
constexpr DWORD INTERNET_OPEN_TYPE_PROXY = 3;

constexpr DWORD INTERNET_SERVICE_HTTP = 3;
constexpr unsigned short INTERNET_INVALID_PORT_NUMBER = 0;

// Flags of requests. There is no cache: the flags about one are accepted, and RELOAD asks caches on
// the way for a fresh answer.
constexpr DWORD INTERNET_FLAG_RELOAD = 0x80000000;
constexpr DWORD INTERNET_FLAG_NO_CACHE_WRITE = 0x04000000;
constexpr DWORD INTERNET_FLAG_DONT_CACHE = INTERNET_FLAG_NO_CACHE_WRITE;
constexpr DWORD INTERNET_FLAG_SECURE = 0x00800000;
constexpr DWORD INTERNET_FLAG_KEEP_CONNECTION = 0x00400000;
constexpr DWORD INTERNET_FLAG_NO_AUTO_REDIRECT = 0x00200000;
constexpr DWORD INTERNET_FLAG_NO_COOKIES = 0x00080000;
constexpr DWORD INTERNET_FLAG_NO_AUTH = 0x00040000;
constexpr DWORD INTERNET_FLAG_IGNORE_REDIRECT_TO_HTTP = 0x00008000;
constexpr DWORD INTERNET_FLAG_IGNORE_CERT_DATE_INVALID = 0x00002000;
constexpr DWORD INTERNET_FLAG_IGNORE_CERT_CN_INVALID = 0x00001000;
constexpr DWORD INTERNET_FLAG_PRAGMA_NOCACHE = 0x00000100;

// Options: time-outs in milliseconds (0 waits for ever), type of a handle, credentials, relaxations
// of certificates, the URL of a request, credentials of the proxy.
constexpr DWORD INTERNET_OPTION_CONNECT_TIMEOUT = 2;
constexpr DWORD INTERNET_OPTION_SEND_TIMEOUT = 5;
constexpr DWORD INTERNET_OPTION_RECEIVE_TIMEOUT = 6;
constexpr DWORD INTERNET_OPTION_HANDLE_TYPE = 9;
constexpr DWORD INTERNET_OPTION_USERNAME = 28;
constexpr DWORD INTERNET_OPTION_PASSWORD = 29;
constexpr DWORD INTERNET_OPTION_SECURITY_FLAGS = 31;
constexpr DWORD INTERNET_OPTION_URL = 34;
constexpr DWORD INTERNET_OPTION_PROXY_USERNAME = 43;
constexpr DWORD INTERNET_OPTION_PROXY_PASSWORD = 44;

constexpr DWORD INTERNET_HANDLE_TYPE_INTERNET = 1;
constexpr DWORD INTERNET_HANDLE_TYPE_CONNECT_HTTP = 4;
constexpr DWORD INTERNET_HANDLE_TYPE_HTTP_REQUEST = 13;

constexpr DWORD SECURITY_FLAG_SECURE = 0x00000001;
constexpr DWORD SECURITY_FLAG_IGNORE_UNKNOWN_CA = 0x00000100;
constexpr DWORD SECURITY_FLAG_IGNORE_CERT_CN_INVALID = INTERNET_FLAG_IGNORE_CERT_CN_INVALID;
constexpr DWORD SECURITY_FLAG_IGNORE_CERT_DATE_INVALID = INTERNET_FLAG_IGNORE_CERT_DATE_INVALID;

// What HttpAddRequestHeadersA does with a header: add (the same name may be there), only if new,
// replace (removes when the value is empty), join with ", ".
constexpr DWORD HTTP_ADDREQ_FLAG_ADD_IF_NEW = 0x10000000;
constexpr DWORD HTTP_ADDREQ_FLAG_ADD = 0x20000000;
constexpr DWORD HTTP_ADDREQ_FLAG_REPLACE = 0x80000000;
constexpr DWORD HTTP_ADDREQ_FLAG_COALESCE_WITH_COMMA = 0x40000000;
constexpr DWORD HTTP_ADDREQ_FLAG_COALESCE = HTTP_ADDREQ_FLAG_COALESCE_WITH_COMMA;

// What HttpQueryInfoA tells, and in which form.
constexpr DWORD HTTP_QUERY_CONTENT_TYPE = 1;
constexpr DWORD HTTP_QUERY_CONTENT_LENGTH = 5;
constexpr DWORD HTTP_QUERY_DATE = 9;
constexpr DWORD HTTP_QUERY_EXPIRES = 10;
constexpr DWORD HTTP_QUERY_LAST_MODIFIED = 11;
constexpr DWORD HTTP_QUERY_VERSION = 18;
constexpr DWORD HTTP_QUERY_STATUS_CODE = 19;
constexpr DWORD HTTP_QUERY_STATUS_TEXT = 20;
constexpr DWORD HTTP_QUERY_RAW_HEADERS = 21;
constexpr DWORD HTTP_QUERY_RAW_HEADERS_CRLF = 22;
constexpr DWORD HTTP_QUERY_ACCEPT_RANGES = 42;
constexpr DWORD HTTP_QUERY_CONTENT_ENCODING = 29;
constexpr DWORD HTTP_QUERY_LOCATION = 33;
constexpr DWORD HTTP_QUERY_SERVER = 37;
constexpr DWORD HTTP_QUERY_WWW_AUTHENTICATE = 40;
constexpr DWORD HTTP_QUERY_SET_COOKIE = 43;
constexpr DWORD HTTP_QUERY_REQUEST_METHOD = 45;
constexpr DWORD HTTP_QUERY_CONTENT_RANGE = 53;
constexpr DWORD HTTP_QUERY_ETAG = 54;
constexpr DWORD HTTP_QUERY_TRANSFER_ENCODING = 63;
constexpr DWORD HTTP_QUERY_CUSTOM = 65535;
constexpr DWORD HTTP_QUERY_FLAG_REQUEST_HEADERS = 0x80000000;
constexpr DWORD HTTP_QUERY_FLAG_SYSTEMTIME = 0x40000000;
constexpr DWORD HTTP_QUERY_FLAG_NUMBER = 0x20000000;

// What a status callback reports.
constexpr DWORD INTERNET_STATUS_CONNECTING_TO_SERVER = 20;
constexpr DWORD INTERNET_STATUS_CONNECTED_TO_SERVER = 21;
constexpr DWORD INTERNET_STATUS_SENDING_REQUEST = 30;
constexpr DWORD INTERNET_STATUS_REQUEST_SENT = 31;
constexpr DWORD INTERNET_STATUS_RECEIVING_RESPONSE = 40;
constexpr DWORD INTERNET_STATUS_RESPONSE_RECEIVED = 41;
constexpr DWORD INTERNET_STATUS_CLOSING_CONNECTION = 50;
constexpr DWORD INTERNET_STATUS_HANDLE_CREATED = 60;
constexpr DWORD INTERNET_STATUS_HANDLE_CLOSING = 70;
constexpr DWORD INTERNET_STATUS_REDIRECT = 110;

// Flags of the URL functions.
constexpr DWORD ICU_NO_ENCODE = 0x20000000;
constexpr DWORD ICU_DECODE = 0x10000000;
constexpr DWORD ICU_NO_META = 0x08000000;
constexpr DWORD ICU_ENCODE_SPACES_ONLY = 0x04000000;
constexpr DWORD ICU_BROWSER_MODE = 0x02000000;
constexpr DWORD ICU_ESCAPE = 0x80000000;
constexpr DWORD INTERNET_MAX_URL_LENGTH = 2084;

constexpr DWORD FILE_BEGIN = 0;
constexpr DWORD FILE_CURRENT = 1;
constexpr DWORD FILE_END = 2;

// --- records ----------------------------------------------------------------------------------

// A point in time, UTC here.
struct _SYSTEMTIME {
  unsigned short wYear;
  unsigned short wMonth;      // 1 to 12
  unsigned short wDayOfWeek;  // 0 is Sunday
  unsigned short wDay;
  unsigned short wHour;
  unsigned short wMinute;
  unsigned short wSecond;
  unsigned short wMilliseconds;
};

// The start of a request that is sent in pieces: headers, the first bytes of the body, its length.
struct _INTERNET_BUFFERSA {
  DWORD dwStructSize;
  struct _INTERNET_BUFFERSA* Next;
  const char* lpcszHeader;
  DWORD dwHeadersLength;
  DWORD dwHeadersTotal;
  void* lpvBuffer;
  DWORD dwBufferLength;
  DWORD dwBufferTotal;
  DWORD dwOffsetLow;
  DWORD dwOffsetHigh;
};

// --- functions --------------------------------------------------------------------------------

typedef void (*INTERNET_STATUS_CALLBACK)(HINTERNET handle, unsigned __int64 context, DWORD status,
                                         void* information, DWORD informationLength);

// What InternetSetStatusCallback returns on failure.
inline INTERNET_STATUS_CALLBACK QNInvalidStatusCallback() {
  return reinterpret_cast<INTERNET_STATUS_CALLBACK>(~0ULL);
}
#define INTERNET_INVALID_STATUS_CALLBACK QNInvalidStatusCallback()

// The error of this thread's last failure here.
QN_PLAIN_API DWORD GetLastError();
QN_PLAIN_API void SetLastError(DWORD error);

// Opens a session. Sessions hold the connections that are kept for further requests.
QN_PLAIN_API HINTERNET InternetOpenA(const char* agent, DWORD accessType, const char* proxy,
                                     const char* bypass, DWORD flags);

// Names a server (port 0: the scheme's own); nothing is connected yet. Only INTERNET_SERVICE_HTTP.
QN_PLAIN_API HINTERNET InternetConnectA(HINTERNET session, const char* server, unsigned short port,
                                        const char* user, const char* password, DWORD service,
                                        DWORD flags, unsigned __int64 context);

// Sends GET for an HTTP or HTTPS URL and receives the head of the response.
QN_PLAIN_API HINTERNET InternetOpenUrlA(HINTERNET session, const char* url, const char* headers,
                                        DWORD headersLength, DWORD flags, unsigned __int64 context);

// Closes a handle and all handles below it; INTERNET_STATUS_HANDLE_CLOSING is reported for each.
QN_PLAIN_API int InternetCloseHandle(HINTERNET handle);

// Installs (null: removes) the callback of a handle and of handles made below it from now on, and
// returns the one that was installed before.
QN_PLAIN_API INTERNET_STATUS_CALLBACK InternetSetStatusCallback(HINTERNET handle,
                                                                INTERNET_STATUS_CALLBACK callback);

// Options. A null handle has none. Text options of InternetQueryOptionA count without the
// terminator on success and with it in *length when the buffer is too small (error 122).
QN_PLAIN_API int InternetSetOptionA(HINTERNET handle, DWORD option, void* buffer, DWORD length);
QN_PLAIN_API int InternetSetOptionExA(HINTERNET handle, DWORD option, void* buffer, DWORD length,
                                      DWORD flags);
QN_PLAIN_API int InternetQueryOptionA(HINTERNET handle, DWORD option, void* buffer, DWORD* length);

// Cookies, one store for the process. data is "value" or, with a null name, "name=value"; either
// may be followed by attributes (expires, max-age, domain, path, secure). InternetGetCookieA gives
// "name=value; name=value" of all cookies that would be sent to url, except those for HTTP only;
// *length counts the terminator. A null buffer asks for the length. No cookie: error 259.
QN_PLAIN_API int InternetSetCookieA(const char* url, const char* name, const char* data);
QN_PLAIN_API int InternetGetCookieA(const char* url, const char* name, char* data, DWORD* length);

// Prepares a request. An empty or null verb is GET, a null version HTTP/1.1, spaces in object are
// sent as %20.
QN_PLAIN_API HINTERNET HttpOpenRequestA(HINTERNET connection, const char* verb, const char* object,
                                        const char* version, const char* referer,
                                        const char** acceptTypes, DWORD flags,
                                        unsigned __int64 context);

// Adds header lines of length bytes (0xFFFFFFFF: up to the terminator) to a request.
QN_PLAIN_API int HttpAddRequestHeadersA(HINTERNET request, const char* headers, DWORD length,
                                        DWORD flags);

// Sends a request with a body of optionalLength bytes and receives the head of the response.
// Redirects are followed and a Basic challenge is answered when credentials are known.
QN_PLAIN_API int HttpSendRequestA(HINTERNET request, const char* headers, DWORD headersLength,
                                  void* optional, DWORD optionalLength);

// Sends the head of a request; InternetWriteFile sends the body, of dwBufferTotal bytes or, with a
// header "Transfer-Encoding: chunked", in chunks that the host frames; HttpEndRequestA ends it and
// receives the head of the response.
QN_PLAIN_API int HttpSendRequestExA(HINTERNET request, INTERNET_BUFFERSA* in,
                                    INTERNET_BUFFERSA* out, DWORD flags, unsigned __int64 context);
QN_PLAIN_API int HttpEndRequestA(HINTERNET request, INTERNET_BUFFERSA* out, DWORD flags,
                                 unsigned __int64 context);

// A header of the response (with HTTP_QUERY_FLAG_REQUEST_HEADERS of the request). *length is the
// size of the buffer in bytes, then what was written; with error 122, what is needed with the
// terminator. *index chooses among headers of one name and is counted up; null means the first.
// HTTP_QUERY_CUSTOM takes the name from buffer.
QN_PLAIN_API int HttpQueryInfoA(HINTERNET request, DWORD level, void* buffer, DWORD* length,
                                DWORD* index);

// Reads the body, as many bytes as asked for unless it ends before; 0 at its end. A connection that
// ends before the announced length ends the body.
QN_PLAIN_API int InternetReadFile(HINTERNET request, void* buffer, DWORD count, DWORD* read);
QN_PLAIN_API int InternetWriteFile(HINTERNET request, const void* data, DWORD count,
                                   DWORD* written);

// How many bytes of the body have arrived; waits for the first ones. flags and context are 0.
QN_PLAIN_API int InternetQueryDataAvailable(HINTERNET request, DWORD* available, DWORD flags,
                                            unsigned __int64 context);

// Bodies cannot be read twice: always fails with ERROR_INTERNET_INVALID_OPERATION.
QN_PLAIN_API DWORD InternetSetFilePointer(HINTERNET file, int offset, void* reserved, DWORD method,
                                          unsigned __int64 context);

// The server's own words about its last failure: HTTP servers have none, the text is empty.
QN_PLAIN_API int InternetGetLastResponseInfoA(DWORD* error, char* text, DWORD* length);

#endif  // QUARNFC_SUPPLIES_INTERNET_API

#endif  // QUARNFC_INTERNET_API_H_

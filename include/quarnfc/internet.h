// SPDX-License-Identifier: MIT
// Sessions and connections of the HTTP client: CQNInternetSession, CQNInternetConnection and
// CQNHttpConnection, which yield the requests and responses of <quarnfc/internet_file.h>.
//
// Text is in the process ANSI code page.
//
// Ownership: each object owns one handle of the platform's internet API and closes it in Close or
// its destructor. What GetHttpConnection, OpenURL and OpenRequest return belongs to the caller, who
// deletes it. Closing a session closes its connections and files as well, closing a connection its
// files: what is left of them closes nothing any more, and using it fails with code 6. A connection
// still refers to its session, though, and must not open requests once that is destroyed. Copies of
// an object share its handle: the first one that is closed or destroyed closes it for all.
//
// Context: a 64-bit value of the host's own that the platform hands back in status callbacks and
// exceptions carry. The value 1 means "inherit": a connection takes its session's context, a
// request its connection's.
//
// Errors: what creates a handle throws a CQNInternetException* with the platform's error code; the
// catcher deletes it. Options and cookies return the platform's result.
//
// Threads: an object is used by one thread at a time. Objects of different sessions may be used on
// different threads. Status callbacks may run on threads of the platform: Close of a session
// returns when none of its callbacks is running on another thread, and none starts afterwards. A
// class derived from CQNInternetSession that overrides OnStatusCallback calls Close in its own
// destructor, before its members go.
//
// Implemented in net: session.cpp, cookies.cpp, connection.cpp and http_connection.cpp.
//
// Example:
//   try {
//     CQNInternetSession session("MapClient");
//     CQNHttpConnection* connection = session.GetHttpConnection("maps.example", 80);
//     CQNHttpFile* file = connection->OpenRequest("GET", "/index.json");
//     file->SendRequest();
//     CQNString line;
//     while (file->ReadString(line) != 0) std::printf("%s\n", static_cast<const char*>(line));
//     delete file;
//     delete connection;
//   } catch (CQNInternetException* error) {
//     delete error;
//   }
#ifndef QUARNFC_INTERNET_H_
#define QUARNFC_INTERNET_H_

#include <quarnfc/export.h>
#include <quarnfc/internet_exception.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <new>

class CQNHttpConnection;
class CQNHttpFile;

// A status callback of the platform: handle, context, status, information and its length.
typedef void (*QNInternetStatusCallback)(HINTERNET, unsigned __int64, DWORD, void*, DWORD);

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

// One use of the internet API: user agent, proxy settings, cookies, status callbacks.
// The destructor is deliberately not virtual: delete a session as the class it was made as.
class QN_API CQNInternetSession {
 public:
  // Opens a session. A null agent becomes "Unknow" (spelled so, deliberately). accessType, proxy,
  // bypass and flags are those of InternetOpenA; 0 takes the proxy settings of the system.
  // Throws CQNInternetException*.
  explicit CQNInternetSession(const char* agent = nullptr, unsigned __int64 context = 1,
                              DWORD accessType = 0, const char* proxy = nullptr,
                              const char* bypass = nullptr, DWORD flags = 0);

  // Closes the session, and with it what is still open below it.
  ~CQNInternetSession();

  // Copies share the handle, which the first one to be closed closes. Throw std::bad_alloc.
  CQNInternetSession(const CQNInternetSession& other);
  CQNInternetSession& operator=(const CQNInternetSession& other);

  // Uninstalls the status callback, closes the handle and waits for callbacks that are running on
  // other threads. A second call does nothing.
  virtual void Close();

  // Progress of any handle of this session, when EnableStatusCallback switched it on: override it
  // to observe. This one calls the callback that was installed before, if there was one. It runs
  // inside the platform's calls, possibly on threads of the platform, and must not throw. It may
  // close or abort the file or connection concerned, but must not destroy it.
  virtual void OnStatusCallback(unsigned __int64 context, DWORD status, void* information,
                                DWORD informationLength);

  // Connects to an HTTP server with the session's context; port 0 means the default one. user and
  // password may be null. The connection belongs to the caller. Null when memory is exhausted;
  // throws CQNInternetException*.
  CQNHttpConnection* GetHttpConnection(const char* server, unsigned short port,
                                       const char* user = nullptr, const char* password = nullptr);

  // The same with flags of InternetConnectA.
  CQNHttpConnection* GetHttpConnection(const char* server, DWORD flags, unsigned short port,
                                       const char* user = nullptr, const char* password = nullptr);

  // Opens a URL with the verb GET and returns the response, which belongs to the caller. headers
  // (null for none), "Name: value\r\n" each, are headersLength bytes, or up to the terminator when
  // headersLength is -1. Status callbacks of the response start when this returns. Null when memory
  // is exhausted.
  //
  // Returns null for a file URL, which is not opened, and for anything that is not HTTP or HTTPS
  // once it was opened; that handle deliberately stays open until the session is closed. Throws
  // CQNInternetException* with the session's context when the URL cannot be opened.
  CQNHttpFile* OpenURL(const char* url, unsigned __int64 context = 1, DWORD flags = 0,
                       const char* headers = nullptr, DWORD headersLength = 0xFFFFFFFF);

  // Switches status callbacks of this session on or off. Handles made afterwards report to
  // OnStatusCallback. Returns 0 without an open session, otherwise 1, also when nothing changed.
  // Throws CQNInternetException* when the platform refuses the callback.
  int EnableStatusCallback(int enable);

  // The cookies of a URL are kept by the platform for the whole process.

  // Sets a cookie; cookieData is the value and, behind it, attributes. Returns the platform's
  // result: 0 on failure.
  static int SetCookie(const char* url, const char* cookieName, const char* cookieData);

  // Writes the cookies of url, "name=value; name=value", into buffer, length bytes with the
  // terminator. Returns the platform's result: 0 without a cookie and when buffer is too small.
  static int GetCookie(const char* url, const char* cookieName, char* buffer, DWORD length);

  // The length that GetCookie needs, as the platform counts it, which includes the terminator; 0
  // when there is no cookie.
  static DWORD GetCookieLength(const char* url, const char* cookieName);

  // The same into a string, which is as long as it has to be. The string's length is deliberately
  // the count the platform reports, which includes the terminator where the platform counts it. On
  // failure the string is empty.
  static int GetCookie(const char* url, const char* cookieName, CQNString& cookie);

  static void* operator new(std::size_t size);
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object) noexcept;
  static void operator delete(void* object, const std::nothrow_t&) noexcept;
  static void operator delete(void*, void*) noexcept {}

 private:
  friend class CQNInternetConnection;
  friend class CQNHttpConnection;

  unsigned __int64 context_;
  HINTERNET handle_;
  QNInternetStatusCallback previous_callback_;
  int callback_enabled_;
};

// A connection to one server. The destructor is deliberately not virtual.
class QN_API CQNInternetConnection {
 public:
  // Keeps server (null counts as "") and port; opens nothing. The session is not owned and must
  // outlive the connection.
  CQNInternetConnection(CQNInternetSession* session, const char* server, unsigned short port = 0,
                        unsigned __int64 context = 1);

  // Closes the connection, and with it the requests that are still open.
  ~CQNInternetConnection();

  // Copies share the handle, which the first one to be closed closes. Throw std::bad_alloc.
  CQNInternetConnection(const CQNInternetConnection& other);
  CQNInternetConnection& operator=(const CQNInternetConnection& other);

  // Closes the handle. A second call does nothing.
  virtual void Close();

  // The connection's handle; null when it is not open.
  operator HINTERNET() const;

  // A copy of the server's name as it was given.
  CQNString GetServerName() const;

  // The session, borrowed.
  CQNInternetSession* GetSession() const;

  // Options of the connection: the platform's numbers, buffers and results, 0 on failure.

  // Sets an option to the length bytes in buffer.
  int SetOption(DWORD option, void* buffer, DWORD length, DWORD flags);

  // Sets an option that takes a number, such as a timeout in milliseconds.
  int SetOption(DWORD option, DWORD value, DWORD flags = 0);

  // Reads an option into buffer, *length bytes; *length becomes what was written or is needed.
  int QueryOption(DWORD option, void* buffer, DWORD* length) const;

  // Reads an option that is a number; on failure value stays as it was.
  int QueryOption(DWORD option, DWORD& value) const;

  static void* operator new(std::size_t size);
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object) noexcept;
  static void operator delete(void* object, const std::nothrow_t&) noexcept;
  static void operator delete(void*, void*) noexcept {}

 private:
  friend class CQNHttpConnection;
  friend class CQNHttpFile;
  friend class CQNInternetFile;

  HINTERNET handle_;
  unsigned __int64 context_;
  CQNInternetSession* session_;
  CQNString server_;
  unsigned short port_;
};

// A connection to an HTTP or HTTPS server. The first request opens the network connection.
class QN_API CQNHttpConnection : public CQNInternetConnection {
 public:
  // Verbs of the numbered OpenRequest: "POST", "GET", "HEAD", "PUT", "LINK", "DELETE", "UNLINK".
  static const char* const szHtmlVerbs[7];

  // Connect to server; user and password may be null. flags are those of InternetConnectA.
  // Throw CQNInternetException* with the connection's context.
  CQNHttpConnection(CQNInternetSession* session, const char* server, unsigned short port,
                    const char* user = nullptr, const char* password = nullptr,
                    unsigned __int64 context = 1);

  // The same with flags.
  CQNHttpConnection(CQNInternetSession* session, const char* server, DWORD flags,
                    unsigned short port, const char* user = nullptr, const char* password = nullptr,
                    unsigned __int64 context = 1);

  // Adopts an HTTP connection handle and closes it later; the port is 0. Anything else throws a
  // CQNInternetException* with code 6, and the handle stays the caller's.
  CQNHttpConnection(CQNInternetSession* session, HINTERNET connection, const char* server,
                    unsigned __int64 context = 1);

  // Prepares a request for object, which belongs to the caller; nothing is sent yet. version null
  // means "HTTP/1.0"; acceptTypes is a null-terminated list or null; flags are those of
  // HttpOpenRequestA. The verb number indexes szHtmlVerbs; any other gives the empty verb.
  //
  // A failure of the platform is deliberately not reported here: the request then has a null
  // handle and throws when it is used. So does one whose verb, object, referer, version or accepted
  // types hold a line end, which would start a header that nobody meant; the platform's last error
  // is 87 then. To learn of a failure at once:
  //
  //   std::unique_ptr<CQNHttpFile> file(connection.OpenRequest("GET", object));
  //   if (file == nullptr || *file == nullptr) ...  // no memory, or not opened
  //
  // Null when memory is exhausted.
  CQNHttpFile* OpenRequest(const char* verb, const char* object, const char* referer = nullptr,
                           unsigned __int64 context = 1, const char** acceptTypes = nullptr,
                           const char* version = nullptr, DWORD flags = 0);

  // The same with a verb number.
  CQNHttpFile* OpenRequest(int verb, const char* object, const char* referer = nullptr,
                           unsigned __int64 context = 1, const char** acceptTypes = nullptr,
                           const char* version = nullptr, DWORD flags = 0);

 private:
  void Connect(const char* server, unsigned short port, const char* user, const char* password,
               DWORD flags);
  void Adopt(HINTERNET connection);

  // Always empty: part of the layout.
  CQNString reserved_;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

#endif  // QUARNFC_INTERNET_H_

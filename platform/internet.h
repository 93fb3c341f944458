// SPDX-License-Identifier: MIT
// The platform's internet functions, under the names Windows gives them: the library hands handles,
// option numbers and status codes through to hosts. On Windows they are the platform's; elsewhere
// platform/posix/internet supplies them.
//
// What the library relies on. Functions that fail return 0, null or what is said below, and leave
// the reason to GetLastError. Text is in the process ANSI code page. All block.
//
//   InternetOpenA                 a session handle
//   InternetConnectA              a connection handle below a session; nothing on the network yet
//   InternetOpenUrlA              a request handle below a session, whose response has begun
//   HttpOpenRequestA              a request handle below a connection; nothing on the network yet
//   InternetCloseHandle           closes a handle and those below it, whose numbers may be used
//                                 again at once
//   InternetSetStatusCallback     installs the callback of a handle and of handles made below it
//                                 later; returns the one before, or all ones for a failure. Calls
//                                 may come on any thread, also while a handle is closed
//   InternetSetOptionExA,         options of a handle; INTERNET_OPTION_HANDLE_TYPE tells its type
//   InternetQueryOptionA
//   InternetSetCookieA,           cookies of a URL, one store for the process; the length asked for
//   InternetGetCookieA            with a null buffer counts the terminator
//   HttpAddRequestHeadersA        adds header lines to a request
//   HttpSendRequestA              sends a request and receives the head of the response
//   HttpSendRequestExA,           the same in pieces, with InternetWriteFile for the body between
//   HttpEndRequestA               the two
//   HttpQueryInfoA                headers of the response; ERROR_INSUFFICIENT_BUFFER with the size
//                                 that is needed in *length
//   InternetReadFile              the body, 0 bytes at its end
//   InternetWriteFile             may take fewer bytes than it was given
//   InternetSetFilePointer        0xFFFFFFFF when it fails
//   InternetQueryDataAvailable    how many bytes have arrived; flags and context are 0
//   InternetGetLastResponseInfoA  the server's own words about the last failure of this thread
//   InternetCanonicalizeUrlA      canonical form: escapes what is unsafe, resolves "." and "..";
//                                 *length is the buffer's size, then the length without terminator
//                                 or, with ERROR_INSUFFICIENT_BUFFER, the size that is needed
//   InternetCrackUrlA             the parts of a URL, each into a buffer of the caller; a part that
//                                 does not fit fails the call
//   UrlUnescapeA                  decodes %XX in place, up to the first "?" or "#"
#ifndef QUARNFC_PLATFORM_INTERNET_H_
#define QUARNFC_PLATFORM_INTERNET_H_

#if defined(_WIN32)
#include "platform/windows/internet.h"
#else
#include "platform/posix/internet.h"
#endif

#endif  // QUARNFC_PLATFORM_INTERNET_H_

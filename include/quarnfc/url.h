// SPDX-License-Identifier: MIT
// URL parsing: splits a URL into the service it names, server, object, port and credentials.
//
// All text is in the process ANSI code page. The URL is canonicalised first, then split; the query
// and the fragment stay attached to the object. Nothing is thrown on bad input; std::bad_alloc when
// memory is exhausted. The functions may be called from any thread.
//
// Example:
//   DWORD service = 0;
//   unsigned short port = 0;
//   CQNString server, object;
//   qnParseURL("https://maps.example/tiles?z=3", service, server, object, port) != 0;    // == true
//   service == eServiceHttps;    // == true
//   server;                      // == "maps.example"
//   object;                      // == "/tiles?z=3"
//   port;                        // == 443
#ifndef QUARNFC_URL_H_
#define QUARNFC_URL_H_

#include <quarnfc/export.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>

// The services a URL can name. The first three are the platform's own service numbers.
enum EQNServiceType : unsigned int {
  eServiceFtp = 1,
  eServiceGopher = 2,
  eServiceHttp = 3,
  eServiceUnknown = 0x1000,  // any other scheme, or no URL at all
  eServiceFile = 0x1001,
  eServiceMailto = 0x1002,
  eServiceNews = 0x1006,
  eServiceHttps = 0x100B,
};

// Splits url. Returns nonzero on success, with serviceType one of EQNServiceType and port the one
// the URL names or else the default of its scheme. Server and object hold up to 2083 bytes
// each; a longer part makes the call fail.
//
// A null url returns 0 with serviceType eServiceUnknown; nothing else is touched. Any other failure
// returns 0 with serviceType eServiceUnknown and the port untouched; the strings hold what the
// platform wrote, which is their previous text when it wrote nothing. The platform's last error
// tells why.
QN_PLAIN_API int qnParseURL(const char* url, DWORD& serviceType, CQNString& server,
                            CQNString& object, unsigned short& port);

// As qnParseURL, with user name and password, and with ICU_ flags of the platform:
// ICU_NO_ENCODE, ICU_NO_META, ICU_ENCODE_SPACES_ONLY and ICU_BROWSER_MODE govern canonicalisation;
// ICU_DECODE or ICU_ESCAPE ask for percent escapes of the object to be decoded, up to the first
// "?" or "#" when ICU_BROWSER_MODE is set as well. Server holds up to 255 bytes, object 2047,
// user name and password 127 each; a longer part makes the call fail.
QN_PLAIN_API int qnParseURLEx(const char* url, DWORD& serviceType, CQNString& server,
                              CQNString& object, unsigned short& port, CQNString& user,
                              CQNString& password, DWORD flags);

#endif  // QUARNFC_URL_H_

// SPDX-License-Identifier: MIT
#include "qn/http_error.h"

#include "qn/console.h"

namespace qn {
namespace {

struct OwnWords {
  unsigned int code;
  const char* text;
  const char* hint;
};

constexpr OwnWords kWords[] = {
    {6, "the connection is closed", ""},
    {126, "libcurl is missing", "install it (Debian: libcurl4)"},
    {10054, "the server reset the connection", ""},
    {12001, "too many connections are open", ""},
    {12002, "the time is up", "--timeout gives it longer"},
    {12004, "an internal error of the internet functions", ""},
    {12005, "the URL is invalid", ""},
    {12006, "the protocol of the URL is not known", ""},
    {12007, "the name of the server is not known", "is it spelled right?"},
    {12017, "the operation was cancelled", ""},
    {12029, "the server cannot be reached", "is it running on that port?"},
    {12030, "the server ended the connection too early", ""},
    {12031, "the server reset the connection", ""},
    {12037, "the certificate of the server has expired or is not valid yet",
     "-k accepts it all the same"},
    {12038, "the certificate of the server is for another name", "-k accepts it all the same"},
    {12040, "a redirect leads from HTTPS to HTTP", ""},
    {12044, "the server asks for a certificate of the client", ""},
    {12045, "the certificate of the server comes from an unknown authority",
     "-k accepts it all the same"},
    {12057, "the revocation of the server's certificate cannot be checked",
     "-k accepts it all the same"},
    {12152, "the answer of the server is no HTTP", "is it HTTPS on that port?"},
    {12156, "the redirects of the server do not end", ""},
    {12157, "the secure channel cannot be made", "does the server speak TLS on that port?"},
    {12169, "the certificate of the server is invalid", "-k accepts it all the same"},
    {12175, "the secure channel failed", "-k accepts any certificate"},
};

const OwnWords* FindWords(unsigned int code) {
  for (const OwnWords& words : kWords) {
    if (words.code == code) return &words;
  }
  return nullptr;
}

}  // namespace

std::string DescribeError(const CQNInternetException& exception) {
  char text[512] = "";
  exception.GetErrorMessage(text, sizeof(text));
  std::string message = FromLibrary(text);
  while (!message.empty() && static_cast<unsigned char>(message.back()) <= ' ') message.pop_back();
  const unsigned int code = exception.GetErrorCode();
  const OwnWords* words = FindWords(code);
  if (message.empty()) message = words != nullptr ? words->text : "an error without a text";
  message += " (error " + std::to_string(code) + ")";
  if (words != nullptr && *words->hint != '\0') message += std::string("; ") + words->hint;
  return message;
}

bool IsTransient(unsigned int code) {
  return code == 12002 || code == 12007 || code == 12029 || code == 12030 || code == 12031 ||
         code == 10054;
}

}  // namespace qn

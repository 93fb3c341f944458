// SPDX-License-Identifier: MIT
#include "qn/http_url.h"

#include <quarnfc/percent_encoding.h>
#include <quarnfc/url.h>

#include <algorithm>

#include "qn/errors.h"
#include "qn/http_api.h"

namespace qn {
namespace {

std::string TextOf(const CQNString& text) { return static_cast<const char*>(text); }

// A name of the server's must not lead out of the folder, nor be another one than it looks like.
bool IsFileName(const std::string& name) {
  const auto misleads = [](char ch) {
    const auto byte = static_cast<unsigned char>(ch);
    return byte < ' ' || byte == 0x7F || ch == '/' || ch == '\\' || ch == ':';
  };
  return name != "." && name != ".." && std::none_of(name.begin(), name.end(), misleads);
}

}  // namespace

bool HttpUrl::IsHttp() const { return service == eServiceHttp || IsSecure(); }

bool HttpUrl::IsSecure() const { return service == eServiceHttps; }

bool HttpUrl::SameServer(const HttpUrl& other) const {
  return service == other.service && server == other.server && port == other.port;
}

std::string HttpUrl::Text() const {
  const unsigned short usual = IsSecure() ? 443 : 80;
  std::string text = (IsSecure() ? "https://" : "http://") + server;
  if (port != usual) text.append(":").append(std::to_string(port));
  return text + object;
}

HttpUrl ParseUrl(const std::string& url) {
  HttpUrl parts;
  CQNString server;
  CQNString object;
  CQNString user;
  CQNString password;
  const std::string whole = QNPercentEncoding::EncodeURL(url.substr(0, url.find('#')));
  if (!qnParseURLEx(whole.c_str(), parts.service, server, object, parts.port, user, password,
                    ICU_BROWSER_MODE)) {
    throw Failure("'" + url + "' is not a URL that can be parsed");
  }
  parts.server = TextOf(server);
  parts.object = TextOf(object);
  parts.user = QNPercentEncoding::Decode(TextOf(user));
  parts.password = QNPercentEncoding::Decode(TextOf(password));
  return parts;
}

std::string ResolveLocation(const HttpUrl& base, std::string_view location) {
  const std::string text(location);
  const std::size_t colon = text.find("://");
  if (colon != std::string::npos && colon < text.find_first_of("/?#")) return text;
  if (text.rfind("//", 0) == 0) return (base.IsSecure() ? "https:" : "http:") + text;
  HttpUrl next = base;
  const std::string path = base.object.substr(0, base.object.find('?'));
  if (text.rfind('/', 0) == 0) {
    next.object = text;
  } else if (text.empty() || text[0] == '?' || text[0] == '#') {
    next.object = path + text;
  } else {
    next.object = path.substr(0, path.rfind('/') + 1) + text;
  }
  return next.Text();
}

std::string RemoteName(const HttpUrl& url) {
  const std::string path = url.object.substr(0, url.object.find('?'));
  const std::string name = QNPercentEncoding::Decode(path.substr(path.rfind('/') + 1));
  return IsFileName(name) ? name : "";
}

}  // namespace qn

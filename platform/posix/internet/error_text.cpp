// SPDX-License-Identifier: MIT
// Texts of the error codes, in English and, where the system speaks Chinese, in Chinese.
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/internet.h"
#include "platform/internet_error_text.h"

namespace quarnfc::platform {
namespace {

struct ErrorText {
  unsigned int code;
  const char* english;
  const char* chinese;  // code page 936; the comment above each entry shows it
};

constexpr ErrorText kTexts[] = {
    // 系统找不到指定的文件。
    {2, "The system cannot find the file specified.",
     "\xCF\xB5\xCD\xB3\xD5\xD2\xB2\xBB\xB5\xBD\xD6\xB8\xB6\xA8\xB5\xC4\xCE\xC4\xBC\xFE\xA1\xA3"},
    // 拒绝访问。
    {5, "Access is denied.", "\xBE\xDC\xBE\xF8\xB7\xC3\xCE\xCA\xA1\xA3"},
    // 句柄无效。
    {6, "The handle is invalid.", "\xBE\xE4\xB1\xFA\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 内存不足。
    {8, "Not enough memory is available.", "\xC4\xDA\xB4\xE6\xB2\xBB\xD7\xE3\xA1\xA3"},
    // 参数错误。
    {87, "A parameter is incorrect.", "\xB2\xCE\xCA\xFD\xB4\xED\xCE\xF3\xA1\xA3"},
    // 缓冲区太小。
    {122, "The buffer is too small.", "\xBB\xBA\xB3\xE5\xC7\xF8\xCC\xAB\xD0\xA1\xA1\xA3"},
    // 找不到需要的库。
    {126, "A library that is needed was not found.",
     "\xD5\xD2\xB2\xBB\xB5\xBD\xD0\xE8\xD2\xAA\xB5\xC4\xBF\xE2\xA1\xA3"},
    // 没有更多的数据。
    {259, "No more data is available.",
     "\xC3\xBB\xD3\xD0\xB8\xFC\xB6\xE0\xB5\xC4\xCA\xFD\xBE\xDD\xA1\xA3"},
    // 服务器重置了连接。
    {10054, "The server reset the connection.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xD6\xD8\xD6\xC3\xC1\xCB\xC1\xAC\xBD\xD3\xA1\xA3"},
    // 无法再创建句柄。
    {12001, "No more handles can be made.",
     "\xCE\xDE\xB7\xA8\xD4\xD9\xB4\xB4\xBD\xA8\xBE\xE4\xB1\xFA\xA1\xA3"},
    // 操作超时。
    {12002, "The operation timed out.", "\xB2\xD9\xD7\xF7\xB3\xAC\xCA\xB1\xA1\xA3"},
    // 服务器返回了扩展信息。
    {12003, "The server returned extended information.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xB7\xB5\xBB\xD8\xC1\xCB\xC0\xA9\xD5\xB9\xD0\xC5\xCF\xA2\xA1\xA3"},
    // 发生内部错误。
    {12004, "An internal error occurred.",
     "\xB7\xA2\xC9\xFA\xC4\xDA\xB2\xBF\xB4\xED\xCE\xF3\xA1\xA3"},
    // URL 无效。
    {12005, "The URL is invalid.", "\x55\x52\x4C\x20\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 无法识别 URL 的协议。
    {12006, "The URL does not use a recognised protocol.",
     "\xCE\xDE\xB7\xA8\xCA\xB6\xB1\xF0\x20\x55\x52\x4C\x20\xB5\xC4\xD0\xAD\xD2\xE9\xA1\xA3"},
    // 无法解析服务器的名称或地址。
    {12007, "The server name or address could not be resolved.",
     "\xCE\xDE\xB7\xA8\xBD\xE2\xCE\xF6\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xC3\xFB\xB3\xC6\xBB\xF2\xB5"
     "\xD8\xD6\xB7\xA1\xA3"},
    // 选项无效。
    {12009, "The option is invalid.", "\xD1\xA1\xCF\xEE\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 请求的操作无效。
    {12016, "The requested operation is not valid.",
     "\xC7\xEB\xC7\xF3\xB5\xC4\xB2\xD9\xD7\xF7\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 操作已取消。
    {12017, "The operation was cancelled.", "\xB2\xD9\xD7\xF7\xD2\xD1\xC8\xA1\xCF\xFB\xA1\xA3"},
    // 句柄的类型不适合此操作。
    {12018, "The handle is of the wrong type for this operation.",
     "\xBE\xE4\xB1\xFA\xB5\xC4\xC0\xE0\xD0\xCD\xB2\xBB\xCA\xCA\xBA\xCF\xB4\xCB\xB2\xD9\xD7\xF7\xA1"
     "\xA3"},
    // 句柄的状态不适合此操作。
    {12019, "The handle is in the wrong state for this operation.",
     "\xBE\xE4\xB1\xFA\xB5\xC4\xD7\xB4\xCC\xAC\xB2\xBB\xCA\xCA\xBA\xCF\xB4\xCB\xB2\xD9\xD7\xF7\xA1"
     "\xA3"},
    // 无法与服务器建立连接。
    {12029, "A connection with the server could not be established.",
     "\xCE\xDE\xB7\xA8\xD3\xEB\xB7\xFE\xCE\xF1\xC6\xF7\xBD\xA8\xC1\xA2\xC1\xAC\xBD\xD3\xA1\xA3"},
    // 与服务器的连接异常终止。
    {12030, "The connection with the server ended abnormally.",
     "\xD3\xEB\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xC1\xAC\xBD\xD3\xD2\xEC\xB3\xA3\xD6\xD5\xD6\xB9\xA1"
     "\xA3"},
    // 与服务器的连接被重置。
    {12031, "The connection with the server was reset.",
     "\xD3\xEB\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xC1\xAC\xBD\xD3\xB1\xBB\xD6\xD8\xD6\xC3\xA1\xA3"},
    // 服务器的证书已过期或尚未生效。
    {12037, "The certificate of the server has expired or is not valid yet.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xD6\xA4\xCA\xE9\xD2\xD1\xB9\xFD\xC6\xDA\xBB\xF2\xC9\xD0\xCE"
     "\xB4\xC9\xFA\xD0\xA7\xA1\xA3"},
    // 服务器的证书属于另一个名称。
    {12038, "The certificate of the server is for another name.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xD6\xA4\xCA\xE9\xCA\xF4\xD3\xDA\xC1\xED\xD2\xBB\xB8\xF6\xC3"
     "\xFB\xB3\xC6\xA1\xA3"},
    // 重定向从安全连接转到不安全的连接。
    {12040, "A redirect leads from a secure to an insecure connection.",
     "\xD6\xD8\xB6\xA8\xCF\xF2\xB4\xD3\xB0\xB2\xC8\xAB\xC1\xAC\xBD\xD3\xD7\xAA\xB5\xBD\xB2\xBB\xB0"
     "\xB2\xC8\xAB\xB5\xC4\xC1\xAC"
     "\xBD\xD3\xA1\xA3"},
    // 服务器证书的颁发机构未知或不正确。
    {12045, "The authority that issued the certificate of the server is unknown or wrong.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xD6\xA4\xCA\xE9\xB5\xC4\xB0\xE4\xB7\xA2\xBB\xFA\xB9\xB9\xCE\xB4\xD6"
     "\xAA\xBB\xF2\xB2\xBB\xD5\xFD"
     "\xC8\xB7\xA1\xA3"},
    // 找不到请求的标头。
    {12150, "The requested header was not found.",
     "\xD5\xD2\xB2\xBB\xB5\xBD\xC7\xEB\xC7\xF3\xB5\xC4\xB1\xEA\xCD\xB7\xA1\xA3"},
    // 服务器的响应无效。
    {12152, "The response of the server is invalid.",
     "\xB7\xFE\xCE\xF1\xC6\xF7\xB5\xC4\xCF\xEC\xD3\xA6\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 标头无效。
    {12153, "The header is invalid.", "\xB1\xEA\xCD\xB7\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 对请求的查询无效。
    {12154, "The query about the request is invalid.",
     "\xB6\xD4\xC7\xEB\xC7\xF3\xB5\xC4\xB2\xE9\xD1\xAF\xCE\xDE\xD0\xA7\xA1\xA3"},
    // 标头已存在。
    {12155, "The header already exists.", "\xB1\xEA\xCD\xB7\xD2\xD1\xB4\xE6\xD4\xDA\xA1\xA3"},
    // 重定向失败。
    {12156, "The redirect failed.", "\xD6\xD8\xB6\xA8\xCF\xF2\xCA\xA7\xB0\xDC\xA1\xA3"},
    // 无法建立安全通道。
    {12157, "The secure channel could not be made.",
     "\xCE\xDE\xB7\xA8\xBD\xA8\xC1\xA2\xB0\xB2\xC8\xAB\xCD\xA8\xB5\xC0\xA1\xA3"},
};

// As the C library's programs decide on the language of their messages.
bool SystemSpeaksChinese() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return std::strncmp(value, "zh", 2) == 0;
  }
  return false;
}

}  // namespace

bool InternetErrorText(unsigned int code, std::string& text) {
  for (const ErrorText& entry : kTexts) {
    if (entry.code != code) continue;
    text = SystemSpeaksChinese() ? entry.chinese : entry.english;
    return true;
  }
  return false;
}

}  // namespace quarnfc::platform

// SPDX-License-Identifier: MIT
// The Chinese texts of error codes: each decodes from code page 936 to what it is meant to say.
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include <iconv.h>

#include "platform/internet_error_text.h"

namespace {

using quarnfc::platform::InternetErrorText;

// Nothing when a byte is no character of the code page.
std::optional<std::string> Decoded(std::string text) {
  const iconv_t converter = iconv_open("UTF-8", "CP936");
  std::string decoded(text.size() * 3 + 1, '\0');
  char* in = text.data();
  char* out = decoded.data();
  std::size_t in_left = text.size();
  std::size_t out_left = decoded.size();
  const bool whole = iconv(converter, &in, &in_left, &out, &out_left) == 0 && in_left == 0;
  iconv_close(converter);
  decoded.resize(decoded.size() - out_left);
  return whole ? std::optional(decoded) : std::nullopt;
}

// The variables that tell the language of messages, as long as this lives; null is not set.
class Language {
 public:
  Language(const char* all, const char* messages, const char* lang)
      : all_("LC_ALL", all), messages_("LC_MESSAGES", messages), lang_("LANG", lang) {}

 private:
  class Variable {
   public:
    Variable(const char* name, const char* value) : name_(name) {
      if (const char* old = std::getenv(name)) previous_ = old;
      Set(value);
    }
    ~Variable() { Set(previous_ ? previous_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

   private:
    void Set(const char* value) { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }

    const char* name_;
    std::optional<std::string> previous_;
  };

  Variable all_;
  Variable messages_;
  Variable lang_;
};

struct Text {
  unsigned int code;
  const char* utf8;
};

constexpr Text kTexts[] = {
    {2, "系统找不到指定的文件。"},
    {5, "拒绝访问。"},
    {6, "句柄无效。"},
    {8, "内存不足。"},
    {87, "参数错误。"},
    {122, "缓冲区太小。"},
    {126, "找不到需要的库。"},
    {259, "没有更多的数据。"},
    {10054, "服务器重置了连接。"},
    {12001, "无法再创建句柄。"},
    {12002, "操作超时。"},
    {12003, "服务器返回了扩展信息。"},
    {12004, "发生内部错误。"},
    {12005, "URL 无效。"},
    {12006, "无法识别 URL 的协议。"},
    {12007, "无法解析服务器的名称或地址。"},
    {12009, "选项无效。"},
    {12016, "请求的操作无效。"},
    {12017, "操作已取消。"},
    {12018, "句柄的类型不适合此操作。"},
    {12019, "句柄的状态不适合此操作。"},
    {12029, "无法与服务器建立连接。"},
    {12030, "与服务器的连接异常终止。"},
    {12031, "与服务器的连接被重置。"},
    {12037, "服务器的证书已过期或尚未生效。"},
    {12038, "服务器的证书属于另一个名称。"},
    {12040, "重定向从安全连接转到不安全的连接。"},
    {12045, "服务器证书的颁发机构未知或不正确。"},
    {12150, "找不到请求的标头。"},
    {12152, "服务器的响应无效。"},
    {12153, "标头无效。"},
    {12154, "对请求的查询无效。"},
    {12155, "标头已存在。"},
    {12156, "重定向失败。"},
    {12157, "无法建立安全通道。"},
};

TEST(InternetErrorText, EveryChineseTextDecodesToWhatItIsMeantToSay) {
  const Language language("zh_CN.UTF-8", nullptr, nullptr);
  for (const Text& expected : kTexts) {
    std::string text;
    ASSERT_TRUE(InternetErrorText(expected.code, text)) << expected.code;
    EXPECT_EQ(Decoded(text), expected.utf8) << expected.code;
  }
}

TEST(InternetErrorText, TheFirstVariableThatSaysSomethingTellsTheLanguage) {
  const struct {
    const char* all;
    const char* messages;
    const char* lang;
    bool chinese;
  } cases[] = {{nullptr, nullptr, nullptr, false}, {"", "", "", false},
               {"zh_TW", "C", "C", true},          {"C", "zh_CN", "zh_CN", false},
               {nullptr, "zh", "en", true},        {"", "en_US", "zh_CN", false},
               {"", nullptr, "zh_CN", true},       {nullptr, "", "z", false}};
  for (const auto& c : cases) {
    const Language language(c.all, c.messages, c.lang);
    std::string text;
    EXPECT_TRUE(InternetErrorText(12002, text));
    EXPECT_EQ(Decoded(text) == "操作超时。", c.chinese) << &c - cases;
  }
}

TEST(InternetErrorText, ThereIsNoOtherText) {
  std::size_t count = 0;
  std::string text;
  for (unsigned int code = 0; code < 20000; ++code) count += InternetErrorText(code, text) ? 1 : 0;
  EXPECT_EQ(count, std::size(kTexts));
  EXPECT_FALSE(InternetErrorText(0xFFFFFFFF, text));
}

}  // namespace

// SPDX-License-Identifier: MIT
// Entries of the event log off Windows: the C library's syslog is this file's.
#include <gtest/gtest.h>
#include <quarnfc/crash_dump.h>

#include <syslog.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Entry {
  int priority;
  std::string text;

  bool operator==(const Entry&) const = default;
};

std::vector<Entry> g_entries;

}  // namespace

extern "C" void syslog(int priority, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  char* text = nullptr;
  const int length = vasprintf(&text, format, arguments);
  va_end(arguments);
  g_entries.push_back({priority, std::string(text, static_cast<std::size_t>(length))});
  std::free(text);
}

namespace {

std::vector<Entry> Written(unsigned short type, const char* text) {
  g_entries.clear();
  QNErrorUtils::WriteWindowsLog(type, text);
  return g_entries;
}

std::string Repeat(const std::string& text, std::size_t count) {
  std::string repeated;
  repeated.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// Up to 2,047 units the conversion needs no memory from the heap.
TEST(EventLogOffWindows, TextsOfAnyLengthArriveWhole) {
  for (const std::size_t length :
       {0u, 1u, 682u, 683u, 1023u, 1024u, 2046u, 2047u, 2048u, 31840u, 100000u, 3000000u}) {
    EXPECT_TRUE(Written(4, std::string(length, 'x').c_str()) ==
                (std::vector<Entry>{{LOG_USER | LOG_INFO, "Quarn: " + std::string(length, 'x')}}))
        << length;
    EXPECT_TRUE(
        Written(4, Repeat("\xD6\xD0", length).c_str()) ==
        (std::vector<Entry>{{LOG_USER | LOG_INFO, "Quarn: " + Repeat("\xE4\xB8\xAD", length)}}))
        << length;
  }
}

TEST(EventLogOffWindows, TypesBecomePrioritiesAndTextIsNoFormat) {
  const struct {
    unsigned short type;
    int priority;
  } cases[] = {{0, LOG_INFO},   {1, LOG_ERR},      {2, LOG_WARNING},    {4, LOG_INFO},
               {8, LOG_NOTICE}, {16, LOG_WARNING}, {0xFFFF, LOG_NOTICE}};
  for (const auto& c : cases) {
    EXPECT_EQ(Written(c.type, "%s%n"),
              (std::vector<Entry>{{LOG_USER | c.priority, "Quarn: %s%n"}}));
  }
  EXPECT_EQ(Written(4, nullptr), (std::vector<Entry>{{LOG_USER | LOG_INFO, "Quarn: "}}));
}

}  // namespace

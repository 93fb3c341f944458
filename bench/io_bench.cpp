// SPDX-License-Identifier: MIT
// CSV files and date-time text beside what a program writes by hand with the standard library.
#include <quarnfc/csv.h>
#include <quarnfc/time_utils.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "io_data.h"
#include "row.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;

std::size_t ReadWithUs(const char* path) {
  CQNCSVFileReader reader;
  if (!reader.Open(path)) std::abort();
  std::vector<CQNString> row;
  std::size_t fields = 0;
  while (reader.NextRow(row)) fields += row.size();
  return fields;
}

// Cuts one line into fields; doubled quotes are left as they are.
void CutByHand(char* at, std::vector<std::string>& row) {
  row.clear();
  for (;;) {
    const bool is_quoted = *at == '"';
    if (is_quoted) ++at;
    char* const end = at + std::strcspn(at, is_quoted ? "\"" : ",");
    row.emplace_back(at, end);
    at = is_quoted ? end + std::strcspn(end, ",") : end;
    if (*at == '\0') return;
    ++at;
  }
}

std::size_t ReadByHand(const char* path) {
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) std::abort();
  char line[4096];
  std::vector<std::string> row;
  std::size_t fields = 0;
  while (std::fgets(line, sizeof line, file) != nullptr) {
    line[std::strcspn(line, "\r\n")] = '\0';
    CutByHand(line, row);
    fields += row.size();
  }
  std::fclose(file);
  return fields;
}

void AddCsv(const std::string& input, std::size_t bytes) {
  const auto file = std::make_shared<bench::TempFile>(bench::Points(bytes), ".csv");
  Row("CSV into rows", input, kOurs, [file] { Keep(ReadWithUs(file->Path())); });
  Row("CSV into rows", input, "cut by hand", [file] { Keep(ReadByHand(file->Path())); });
}

std::string FormatByHand(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  char text[80];
  std::snprintf(text, sizeof text, "%d-%02d-%02d %02d:%02d:%02d", local.tm_year + 1900,
                local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
  return text;
}

std::time_t ParseByHand(const char* text) {
  std::tm local{};
  local.tm_isdst = -1;
  if (std::sscanf(text, "%d-%d-%d %d:%d:%d", &local.tm_year, &local.tm_mon, &local.tm_mday,
                  &local.tm_hour, &local.tm_min, &local.tm_sec) != 6) {
    std::abort();
  }
  local.tm_year -= 1900;
  local.tm_mon -= 1;
  return std::mktime(&local);
}

void AddTime() {
  constexpr unsigned int kTime = 1704443400;
  Row("time format", "seconds", kOurs, [] { Keep(QNTimeUtils::FormatTime(kTime)); });
  Row("time format", "seconds", "localtime + snprintf", [] { Keep(FormatByHand(kTime)); });
  static constexpr char kText[] = "2024-01-05 08:30:00";
  Row("time parse", "19 B", kOurs, [] { Keep(QNTimeUtils::GetTimeFromStr(kText)); });
  Row("time parse", "19 B", "sscanf + mktime", [] { Keep(ParseByHand(kText)); });
}

}  // namespace

int main(int argc, char** argv) {
  AddCsv("10 MB", bench::kPointsSize);
  AddTime();
  return bench::Run(argc, argv);
}

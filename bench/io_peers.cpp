// SPDX-License-Identifier: MIT
// The CSV benchmarks' peers that are libraries of the native target.
#include <csv.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "io_data.h"
#include "row.h"

namespace {

struct Rows {
  std::vector<std::string> row;
  std::size_t fields = 0;
};

std::size_t ReadWithLibcsv(const char* path) {
  csv_parser parser;
  if (csv_init(&parser, 0) != 0) std::abort();
  const auto field = [](void* text, std::size_t size, void* rows) {
    static_cast<Rows*>(rows)->row.emplace_back(static_cast<const char*>(text), size);
  };
  const auto end_of_row = [](int, void* rows) {
    auto& all = *static_cast<Rows*>(rows);
    all.fields += all.row.size();
    all.row.clear();
  };
  Rows rows;
  std::ifstream file(path, std::ios::binary);
  std::vector<char> block(65536);
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
    csv_parse(&parser, block.data(), static_cast<std::size_t>(file.gcount()), field, end_of_row,
              &rows);
  }
  csv_fini(&parser, field, end_of_row, &rows);
  csv_free(&parser);
  return rows.fields;
}

[[maybe_unused]] const bool g_added = [] {
  const auto file = std::make_shared<bench::TempFile>(bench::Points(bench::kPointsSize), ".peer");
  bench::Row("CSV into rows", "10 MB", "libcsv",
             [file] { bench::Keep(ReadWithLibcsv(file->Path())); });
  return true;
}();

}  // namespace

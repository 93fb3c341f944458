// SPDX-License-Identifier: MIT
// The file of the CSV benchmarks.
#ifndef QUARNFC_BENCH_IO_DATA_H_
#define QUARNFC_BENCH_IO_DATA_H_

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace bench {

inline constexpr std::size_t kPointsSize = 10'000'000;

// A file of the temporary folder for as long as the program runs.
class TempFile {
 public:
  explicit TempFile(const std::string& content, const char* suffix)
      : path_((std::filesystem::temp_directory_path() / (std::string("quarnfc_bench") + suffix))
                  .string()) {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~TempFile() { std::remove(path_.c_str()); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const char* Path() const { return path_.c_str(); }

 private:
  std::string path_;
};

// Points as surveyors keep them: ten fields of 6 to 20 bytes, one of them quoted.
inline std::string Points(std::size_t bytes) {
  std::string text = "no,name,lon,lat,east,north,height,date,remark,code\n";
  for (int i = 0; text.size() < bytes; ++i) {
    const std::string number = std::to_string(100000 + i);
    text += number + ",\xB5\xE3" + number + ",114." + number + ",30." + number + ",500" + number +
            ".25,3300" + number + ".125,23.75,2024-01-05,\"stone, old\",GPS-D\n";
  }
  return text;
}

}  // namespace bench

#endif  // QUARNFC_BENCH_IO_DATA_H_

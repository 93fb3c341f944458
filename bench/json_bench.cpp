// Reading and writing the documents of tests/data/json, beside RapidJSON and nlohmann-json.
//
// Every reader builds its tree from a text in memory and destroys it; every writer makes the
// compact text of a tree. The peers write the shortest digits of a number, this library up to 15
// decimal places.

#include <benchmark/benchmark.h>
#include <quarnfc/json_value.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

namespace {

constexpr const char* kDocuments[] = {"canada.json", "twitter.json"};

std::string ReadFile(const char* name) {
  std::FILE* file = std::fopen((std::string(QUARNFC_BENCH_DATA "/") + name).c_str(), "rb");
  if (file == nullptr) {
    std::fprintf(stderr, "cannot open %s\n", name);
    std::exit(1);
  }
  std::string text(4 << 20, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), file));
  std::fclose(file);
  return text;
}

void CountBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(bytes));
}

void Load(CMyJsonValue& value, const std::string& text) {
  CQNString error;
  if (!value.Load(text.c_str(), error)) std::abort();
}

void ReadWithQuarnFC(benchmark::State& state, const char* name) {
  const std::string text = ReadFile(name);
  for (auto _ : state) {
    CMyJsonValue value;
    Load(value, text);
    benchmark::DoNotOptimize(value);
  }
  CountBytes(state, text.size());
}

void ReadWithRapidJson(benchmark::State& state, const char* name) {
  const std::string text = ReadFile(name);
  for (auto _ : state) {
    rapidjson::Document document;
    // Correctly rounded numbers, as the others give them.
    document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str());
    benchmark::DoNotOptimize(document);
  }
  CountBytes(state, text.size());
}

void ReadWithNlohmann(benchmark::State& state, const char* name) {
  const std::string text = ReadFile(name);
  for (auto _ : state) {
    auto document = nlohmann::json::parse(text);
    benchmark::DoNotOptimize(document);
  }
  CountBytes(state, text.size());
}

void WriteWithQuarnFC(benchmark::State& state, const char* name) {
  CMyJsonValue value;
  Load(value, ReadFile(name));
  for (auto _ : state) benchmark::DoNotOptimize(value.CreateJson(false));
  CountBytes(state, static_cast<std::size_t>(value.CreateJson(false).GetLength()));
}

void WriteWithRapidJson(benchmark::State& state, const char* name) {
  rapidjson::Document document;
  document.Parse(ReadFile(name).c_str());
  std::size_t length = 0;
  for (auto _ : state) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    document.Accept(writer);
    length = buffer.GetSize();
    benchmark::DoNotOptimize(length);
  }
  CountBytes(state, length);
}

void WriteWithNlohmann(benchmark::State& state, const char* name) {
  const auto document = nlohmann::json::parse(ReadFile(name));
  for (auto _ : state) benchmark::DoNotOptimize(document.dump());
  CountBytes(state, document.dump().size());
}

void Register(const char* work, void (*run)(benchmark::State&, const char*), const char* name) {
  benchmark::RegisterBenchmark((std::string(work) + '/' + name).c_str(), run, name)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
  for (const char* name : kDocuments) {
    Register("read/QuarnFC", ReadWithQuarnFC, name);
    Register("read/RapidJSON", ReadWithRapidJson, name);
    Register("read/nlohmann", ReadWithNlohmann, name);
    Register("write/QuarnFC", WriteWithQuarnFC, name);
    Register("write/RapidJSON", WriteWithRapidJson, name);
    Register("write/nlohmann", WriteWithNlohmann, name);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}

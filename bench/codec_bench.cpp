// The codecs and digests beside OpenSSL's, on one megabyte of data and on short data. Each peer
// stands under the function it is compared with; the ratio of their bytes per second counts, not
// the figures of one machine.
#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <quarnfc/quarnfc.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes Data(benchmark::State& state) {
  std::mt19937 random(1);
  Bytes data(static_cast<std::size_t>(state.range(0)));
  for (unsigned char& byte : data) byte = static_cast<unsigned char>(random());
  return data;
}

unsigned Size(const Bytes& data) { return static_cast<unsigned>(data.size()); }

void Count(benchmark::State& state) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void Base64Encode(benchmark::State& state) {
  const Bytes data = Data(state);
  for (auto _ : state) qnFreeMem(QNBase64::qnEncodeBase64A(data.data(), Size(data)));
  Count(state);
}

void PeerBase64Encode(benchmark::State& state) {
  const Bytes data = Data(state);
  for (auto _ : state) {
    Bytes text(data.size() * 4 / 3 + 8);
    benchmark::DoNotOptimize(
        EVP_EncodeBlock(text.data(), data.data(), static_cast<int>(data.size())));
  }
  Count(state);
}

std::string Base64Text(const Bytes& data) {
  char* const text = QNBase64::qnEncodeBase64A(data.data(), Size(data));
  std::string copy = text;
  qnFreeMem(text);
  return copy;
}

void Base64Decode(benchmark::State& state) {
  const std::string text = Base64Text(Data(state));
  for (auto _ : state) {
    unsigned char* data = nullptr;
    benchmark::DoNotOptimize(QNBase64::qnDecodeBase64A(text.c_str(), 0, &data));
    qnFreeMem(data);
  }
  Count(state);
}

void PeerBase64Decode(benchmark::State& state) {
  const std::string text = Base64Text(Data(state));
  for (auto _ : state) {
    Bytes data(text.size());
    benchmark::DoNotOptimize(EVP_DecodeBlock(data.data(),
                                             reinterpret_cast<const unsigned char*>(text.data()),
                                             static_cast<int>(text.size())));
  }
  Count(state);
}

void Base32Encode(benchmark::State& state) {
  const Bytes data = Data(state);
  for (auto _ : state) qnFreeMem(QNBase32::qnEncodeBase32A(data.data(), Size(data)));
  Count(state);
}

void Md5(benchmark::State& state) {
  const Bytes data = Data(state);
  unsigned words[4];
  for (auto _ : state) QNMD5::qnGetMD5Data(data.data(), Size(data), words);
  Count(state);
}

void PeerMd5(benchmark::State& state) {
  const Bytes data = Data(state);
  unsigned char digest[16];
  for (auto _ : state) {
    EVP_Digest(data.data(), data.size(), digest, nullptr, EVP_md5(), nullptr);
  }
  Count(state);
}

void Crc64(benchmark::State& state) {
  const Bytes data = Data(state);
  for (auto _ : state) qnFreeMem(QNCRC64::qnGetCRC64StrA(data.data(), Size(data)));
  Count(state);
}

void HmacSha256(benchmark::State& state) {
  const Bytes data = Data(state);
  char digest[32];
  int length = 32;
  for (auto _ : state) {
    QNHMACSHA::qnHMAC_SHA256("key", 3, data.data(), static_cast<int>(data.size()), digest, &length);
  }
  Count(state);
}

void PeerHmacSha256(benchmark::State& state) {
  const Bytes data = Data(state);
  unsigned char digest[32];
  for (auto _ : state) {
    HMAC(EVP_sha256(), "key", 3, data.data(), data.size(), digest, nullptr);
  }
  Count(state);
}

}  // namespace

#define QUARNFC_BENCH(name) BENCHMARK(name)->Arg(60)->Arg(1 << 20)
QUARNFC_BENCH(Base64Encode);
QUARNFC_BENCH(PeerBase64Encode);
QUARNFC_BENCH(Base64Decode);
QUARNFC_BENCH(PeerBase64Decode);
QUARNFC_BENCH(Base32Encode);
QUARNFC_BENCH(Md5);
QUARNFC_BENCH(PeerMd5);
QUARNFC_BENCH(Crc64);
QUARNFC_BENCH(HmacSha256);
QUARNFC_BENCH(PeerHmacSha256);

BENCHMARK_MAIN();

// SPDX-License-Identifier: MIT
// SHA-256's compression with the SHA extensions of x86. This file is compiled for them; it must
// only run where CpuHasSha() says so.
#include <immintrin.h>

#include <utility>

#include "codec/sha256_compress.h"

namespace quarnfc::codec {
namespace {

__m128i Load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
void Store(void* to, __m128i value) { _mm_storeu_si128(static_cast<__m128i*>(to), value); }

// The eight state words in the order the instructions want: a b e f in one register, c d g h in
// the other, the first named in the highest place.
struct Halves {
  __m128i abef;
  __m128i cdgh;
};

Halves Split(const std::uint32_t* state) {
  const __m128i cdab = _mm_shuffle_epi32(Load(state), 0xB1);
  const __m128i efgh = _mm_shuffle_epi32(Load(state + 4), 0x1B);
  return {_mm_alignr_epi8(cdab, efgh, 8), _mm_blend_epi16(efgh, cdab, 0xF0)};
}

void Join(const Halves& halves, std::uint32_t* state) {
  const __m128i feba = _mm_shuffle_epi32(halves.abef, 0x1B);
  const __m128i dchg = _mm_shuffle_epi32(halves.cdgh, 0xB1);
  Store(state, _mm_blend_epi16(feba, dchg, 0xF0));
  Store(state + 4, _mm_alignr_epi8(dchg, feba, 8));
}

// Steps 4 I to 4 I + 3. w holds sixteen words of the message schedule, which roll on.
template <int I>
void FourSteps(Halves& halves, __m128i (&w)[4]) {
  const __m128i sum = _mm_add_epi32(w[I % 4], Load(kSha256Constants + 4 * I));
  halves.cdgh = _mm_sha256rnds2_epu32(halves.cdgh, halves.abef, sum);
  halves.abef = _mm_sha256rnds2_epu32(halves.abef, halves.cdgh, _mm_shuffle_epi32(sum, 0x0E));
  if constexpr (I < 12) {
    const __m128i seventh = _mm_alignr_epi8(w[(I + 3) % 4], w[(I + 2) % 4], 4);
    const __m128i partial = _mm_add_epi32(_mm_sha256msg1_epu32(w[I % 4], w[(I + 1) % 4]), seventh);
    w[I % 4] = _mm_sha256msg2_epu32(partial, w[(I + 3) % 4]);
  }
}

template <int... I>
void AllSteps(Halves& halves, __m128i (&w)[4], std::integer_sequence<int, I...>) {
  (FourSteps<I>(halves, w), ...);
}

}  // namespace

void Sha256CompressX86(std::uint32_t* state, const unsigned char* blocks, std::size_t count) {
  const __m128i to_big_endian = _mm_set_epi64x(0x0C0D0E0F08090A0B, 0x0405060700010203);
  Halves halves = Split(state);
  for (; count > 0; --count, blocks += Sha256::kBlockBytes) {
    __m128i w[4];
    for (int i = 0; i < 4; ++i) w[i] = _mm_shuffle_epi8(Load(blocks + 16 * i), to_big_endian);
    const Halves before = halves;
    AllSteps(halves, w, std::make_integer_sequence<int, 16>{});
    halves.abef = _mm_add_epi32(halves.abef, before.abef);
    halves.cdgh = _mm_add_epi32(halves.cdgh, before.cdgh);
  }
  Join(halves, state);
}

}  // namespace quarnfc::codec

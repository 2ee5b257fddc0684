#include "zor/kernels/levels/crc_lanes.h"

#include "zor/kernels/levels/level.h"

#if defined(__SSSE3__)
#include <immintrin.h>
#endif

namespace zor::kernels::ZOR_LEVEL {
namespace {

#if defined(__SSSE3__)

/// Sixteen states, byte j of all of them in bytes[j].
struct States {
  __m128i bytes[4];
};

/// One byte for each state.
inline void step(States& s, __m128i data, const CrcConstants& constants) {
  const __m128i half = _mm_set1_epi8(15);
  const __m128i index = _mm_xor_si128(s.bytes[0], data);
  const __m128i low = _mm_and_si128(index, half), high = _mm_and_si128(_mm_srli_epi16(index, 4), half);
  const auto change = [&](int j) {
    const auto* table = reinterpret_cast<const __m128i*>(constants.change);
    return _mm_xor_si128(_mm_shuffle_epi8(_mm_load_si128(table + j), low),
                         _mm_shuffle_epi8(_mm_load_si128(table + 4 + j), high));
  };
  s.bytes[0] = _mm_xor_si128(s.bytes[1], change(0));
  s.bytes[1] = _mm_xor_si128(s.bytes[2], change(1));
  s.bytes[2] = _mm_xor_si128(s.bytes[3], change(2));
  s.bytes[3] = change(3);
}

inline std::uint32_t ahead(std::uint32_t state, const CrcConstants& constants) {
  std::uint32_t result = 0;
  for (int i = 0; i < 8; ++i) result ^= constants.ahead[i][state >> 4 * i & 15];
  return result;
}

/// The cells at p and behind it, a segment apart, in one register.
template <std::size_t kBytes>
inline __m128i gather(const std::uint8_t* p) {
  constexpr std::size_t apart = kCrcSegment * kBytes;
  if constexpr (kBytes == 8) {
    return _mm_unpacklo_epi64(_mm_loadu_si64(p), _mm_loadu_si64(p + apart));
  } else {
    const __m128i a = _mm_unpacklo_epi32(_mm_loadu_si32(p), _mm_loadu_si32(p + apart));
    const __m128i b = _mm_unpacklo_epi32(_mm_loadu_si32(p + 2 * apart), _mm_loadu_si32(p + 3 * apart));
    return _mm_unpacklo_epi64(a, b);
  }
}

template <std::size_t kBytes>
std::size_t blocks(const std::uint8_t* cells, std::size_t n, std::uint32_t* states, const CrcConstants& constants) {
  constexpr std::size_t segments = 32 / kBytes, in_register = segments / 2;
  constexpr std::size_t block = segments * kCrcSegment;
  std::size_t done = 0;
  for (; n - done >= block; done += block) {
    const std::uint8_t* p = cells + done * kBytes;
    // Byte j of state k of segment g stands in start[j][g * kBytes + k]. All segments but the first begin at zero.
    alignas(16) std::uint8_t bytes[4][32] = {};
    for (std::size_t j = 0; j < 4; ++j)
      for (std::size_t k = 0; k < kBytes; ++k) bytes[j][k] = static_cast<std::uint8_t>(states[k] >> 8 * j);
    States a, b;
    for (std::size_t j = 0; j < 4; ++j) {
      a.bytes[j] = _mm_load_si128(reinterpret_cast<const __m128i*>(bytes[j]));
      b.bytes[j] = _mm_setzero_si128();
    }
    const std::uint8_t* q = p + in_register * kCrcSegment * kBytes;
    for (std::size_t i = 0; i < kCrcSegment; ++i, p += kBytes, q += kBytes) {
      step(a, gather<kBytes>(p), constants);
      step(b, gather<kBytes>(q), constants);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      _mm_store_si128(reinterpret_cast<__m128i*>(bytes[j]), a.bytes[j]);
      _mm_store_si128(reinterpret_cast<__m128i*>(bytes[j] + 16), b.bytes[j]);
    }
    for (std::size_t k = 0; k < kBytes; ++k) {
      std::uint32_t state = 0;
      for (std::size_t g = 0; g < segments; ++g) {
        state = ahead(state, constants);
        for (std::size_t j = 0; j < 4; ++j) state ^= std::uint32_t{bytes[j][g * kBytes + k]} << 8 * j;
      }
      states[k] = state;
    }
  }
  return done;
}

#else

/// No lookup in registers here: the caller's loop does it all.
template <std::size_t kBytes>
std::size_t blocks(const std::uint8_t*, std::size_t, std::uint32_t*, const CrcConstants&) {
  return 0;
}

#endif

}  // namespace

extern const CrcTable kCrc = {blocks<8>, blocks<4>};

}  // namespace zor::kernels::ZOR_LEVEL

#include "zor/base/stream_numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace zor::detail {
namespace {

using ZOR_runtime::Int64;
using ZOR_runtime::TStream;

constexpr bool kSameOrder = std::endian::native == std::endian::little;

template <class T>
void swap_bytes(T& value) {
  auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
  std::reverse(bytes.begin(), bytes.end());
  value = std::bit_cast<T>(bytes);
}

template <class T>
void write_run(TStream& stream, std::span<const T> values) {
  if constexpr (kSameOrder) {
    stream.WriteBuffer(values.data(), static_cast<Int64>(values.size_bytes()));
  } else {
    std::array<T, 4096> block;
    while (!values.empty()) {
      const std::size_t n = std::min(values.size(), block.size());
      std::copy_n(values.begin(), n, block.begin());
      std::for_each_n(block.begin(), n, swap_bytes<T>);
      stream.WriteBuffer(block.data(), static_cast<Int64>(n * sizeof(T)));
      values = values.subspan(n);
    }
  }
}

template <class T>
std::size_t read_run(TStream& stream, std::span<T> values) {
  const Int64 got = stream.Read(values.data(), static_cast<Int64>(values.size_bytes()));
  const std::size_t whole = to_size(got) / sizeof(T);
  if constexpr (!kSameOrder) std::for_each_n(values.begin(), whole, swap_bytes<T>);
  return whole;
}

}  // namespace

void write_numbers(TStream& stream, std::span<const double> values) { write_run(stream, values); }
void write_numbers(TStream& stream, std::span<const std::int32_t> values) { write_run(stream, values); }
std::size_t read_numbers(TStream& stream, std::span<double> values) { return read_run(stream, values); }
std::size_t read_numbers(TStream& stream, std::span<std::int32_t> values) { return read_run(stream, values); }

}  // namespace zor::detail

namespace ZOR_streams {
namespace {

template <class T>
T read_one(TStream& stream, Boolean& err) {
  T value{};
  err = zor::detail::read_numbers(stream, std::span<T>(&value, 1)) == 0;
  return err ? T{} : value;
}

}  // namespace

void WriteExtendedToStream(TStream& Stream, Double x) {
  zor::detail::write_numbers(Stream, std::span<const Double>(&x, 1));
}

Double ReadExtendedFromStream(TStream& Stream, Boolean& Err) { return read_one<Double>(Stream, Err); }

void WriteLongintToStream(TStream& Stream, Integer i) {
  zor::detail::write_numbers(Stream, std::span<const Integer>(&i, 1));
}

Integer ReadLongintFromStream(TStream& Stream, Boolean& Err) { return read_one<Integer>(Stream, Err); }

}  // namespace ZOR_streams

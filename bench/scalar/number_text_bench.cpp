#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

#include "bench/pair.h"
#include "zor/base/ZOR_stringl.h"
#include "zor/scalar/ZOR_math1.h"

namespace ZOR_math1 {
namespace {

// Measurements of both signs from 0.001 to 1000, and room for their text in either kind of character.
struct Numbers {
  std::vector<double> x;
  std::vector<char> bytes;
  std::vector<Char> units;
};

Numbers numbers(std::size_t n) {
  Numbers data{zor::bench::noise(n), std::vector<char>(40 * n), std::vector<Char>(40 * n)};
  const std::vector<double> magnitude = zor::bench::noise(n, 7);
  for (std::size_t i = 0; i < n; ++i)
    data.x[i] += std::copysign(0.1, data.x[i]), data.x[i] *= std::pow(10.0, 2.0 * magnitude[i]);
  return data;
}

// One text for each number: a TString, whose units are copied to a line.
template <class Write>
const std::vector<Char>& write_units(Numbers& data, Write write) {
  Char* out = data.units.data();
  for (const double x : data.x) {
    const TString text = write(x);
    out = std::copy(text.units().begin(), text.units().end(), out);
    *out++ = u'\n';
  }
  *out = u'\0';
  return data.units;
}

template <class Write>
const std::vector<char>& write_bytes(Numbers& data, Write write) {
  char* out = data.bytes.data();
  for (const double x : data.x) {
    out = write(out, x);
    *out++ = '\n';
  }
  *out = '\0';
  return data.bytes;
}

// Both hold the same characters up to the zero behind the last line.
constexpr auto same_text = [](const std::vector<Char>& units, const std::vector<char>& bytes) {
  const auto end = std::find(bytes.begin(), bytes.end(), '\0');
  return end != bytes.end() && std::equal(bytes.begin(), end + 1, units.begin());
};

char* standard_fixed(char* out, double x) { return std::to_chars(out, out + 40, x, std::chars_format::fixed, 6).ptr; }
char* standard_shortest(char* out, double x) { return std::to_chars(out, out + 40, x).ptr; }
char* standard_scientific(char* out, double x) {
  return std::to_chars(out, out + 40, x, std::chars_format::scientific, 16).ptr;
}

// A text of numbers, as both sides read it, and room for their values.
struct Lines {
  std::string bytes;
  TString text;
  std::vector<double> x;
};

template <char* (*Write)(char*, double)>
Lines lines(std::size_t n) {
  Numbers data = numbers(n);
  const std::string bytes = write_bytes(data, Write).data();
  return {bytes, bytes, std::vector<double>(n)};
}

// Each number is followed by a line feed, a blank to the next scan.
constexpr auto scan = [](Lines& data) -> auto& {
  Integer at = 1;
  for (double& x : data.x) x = ScanFPNum(data.text, true, 1, at);
  return data.x;
};

constexpr auto standard = [](Lines& data) -> auto& {
  const char* p = data.bytes.data();
  const char* const last = p + data.bytes.size();
  for (double& x : data.x) p = std::from_chars(p, last, x).ptr + 1;
  return data.x;
};

ZOR_BENCH_PAIR(
    strff, numbers,
    [](Numbers& data) -> auto& { return write_units(data, [](double x) { return ZOR_stringl::strff(x, 1, 6); }); },
    [](Numbers& data) -> auto& { return write_bytes(data, standard_fixed); }, same_text)
    .against("std::to_chars into a buffer")
    .goal(1.1)
    .remark("ours has units of 16 bits, as all text of the library")
    .sizes({1'000'000});

ZOR_BENCH_PAIR(ScanFPNum6Decimals, lines<standard_fixed>, scan, standard, zor::bench::equal)
    .against("std::from_chars")
    .goal(1.1)
    .remark("ours has units of 16 bits, as all text of the library")
    .sizes({1'000'000});

ZOR_BENCH_PAIR(ScanFPNumShortest, lines<standard_shortest>, scan, standard, zor::bench::equal)
    .against("std::from_chars")
    .goal(1.1)
    .remark("ours has units of 16 bits, as all text of the library")
    .sizes({1'000'000});

ZOR_BENCH_PAIR(ScanFPNum17Digits, lines<standard_scientific>, scan, standard, zor::bench::equal)
    .against("std::from_chars")
    .goal(1.1)
    .remark("ours has units of 16 bits, as all text of the library")
    .sizes({1'000'000});

}  // namespace
}  // namespace ZOR_math1

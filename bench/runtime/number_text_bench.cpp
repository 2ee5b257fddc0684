#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "bench/pair.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"

namespace {

using namespace zor::detail;

// Measurements of both signs from 0.001 to 1000, and room for their text.
struct Numbers {
  std::vector<double> x;
  std::vector<char> text;
};

Numbers numbers(std::size_t n) {
  Numbers data{zor::bench::noise(n), std::vector<char>(40 * n + kNumberBuffer)};
  const std::vector<double> magnitude = zor::bench::noise(n, 7);
  for (std::size_t i = 0; i < n; ++i)
    data.x[i] += std::copysign(0.1, data.x[i]), data.x[i] *= std::pow(10.0, 2.0 * magnitude[i]);
  return data;
}

// Writes a line for each number; gives the text with a zero behind it.
template <class Write>
const std::vector<char>& write_lines(Numbers& data, Write write) {
  char* out = data.text.data();
  for (const double x : data.x) {
    out = write(out, x);
    *out++ = '\n';
  }
  std::fill_n(out, 8, '\0');  // the writer may have used some characters behind the last number
  return data.text;
}

char* standard_fixed(char* out, double x) { return std::to_chars(out, out + 40, x, std::chars_format::fixed, 6).ptr; }
char* standard_shortest(char* out, double x) { return std::to_chars(out, out + 40, x).ptr; }
char* standard_long(char* out, double x) {
  return std::to_chars(out, out + 40, x, std::chars_format::scientific, 16).ptr;
}

// A text of numbers and room for their values.
struct Lines {
  std::string text;
  std::vector<double> x;
};

template <char* (*Write)(char*, double)>
Lines lines(std::size_t n) {
  Numbers data = numbers(n);
  return {write_lines(data, Write).data(), std::vector<double>(n)};
}

// Reads all lines; read(first, last, value) gives the place behind the number.
template <class Read>
const std::vector<double>& read_lines(Lines& lines, Read read) {
  const char* p = lines.text.data();
  const char* const last = p + lines.text.size();
  for (double& x : lines.x) p = read(p, last, x) + 1;
  return lines.x;
}

constexpr auto ours = [](Lines& data) -> auto& {
  return read_lines(data, [](const char* p, const char* last, double& x) {
    const ParsedNumber number = parse_number(std::string_view(p, static_cast<std::size_t>(last - p)));
    x = number.value;
    return p + number.end;
  });
};

constexpr auto standard = [](Lines& data) -> auto& {
  return read_lines(data, [](const char* p, const char* last, double& x) { return std::from_chars(p, last, x).ptr; });
};

ZOR_BENCH_PAIR(
    WriteFixed6, numbers,
    [](Numbers& data) -> auto& {
      return write_lines(data, [](char* out, double x) { return out + format_fixed(out, x, 6); });
    },
    [](Numbers& data) -> auto& { return write_lines(data, standard_fixed); }, zor::bench::equal)
    .against("std::to_chars")
    .goal(0.6)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(ReadFixed6, lines<standard_fixed>, ours, standard, zor::bench::equal)
    .against("std::from_chars")
    .goal(1.1)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(ReadShortest, lines<standard_shortest>, ours, standard, zor::bench::equal)
    .against("std::from_chars")
    .goal(1.1)
    .sizes({1'000'000});

ZOR_BENCH_PAIR(Read17Digits, lines<standard_long>, ours, standard, zor::bench::equal)
    .against("std::from_chars")
    .sizes({1'000'000});

}  // namespace

#include "zor/runtime/print.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ostream>
#include <vector>

namespace zor::detail {
namespace {

constexpr std::size_t kGap = 2;

/// Characters of UTF-8 text, as wide as a fixed font shows most of them.
std::size_t width_of(const std::string& utf8_text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(utf8_text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void write_aligned(std::ostream& out, const std::string& text, std::size_t width) {
  const std::size_t has = width_of(text);
  for (std::size_t i = has; i < width; ++i) out.put(' ');
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

std::size_t line_width() {
  constexpr std::size_t kUsual = 80, kLeast = 20;
  if (const char* columns = std::getenv("COLUMNS")) {
    std::size_t width = 0;
    const auto [end, failure] = std::from_chars(columns, columns + std::strlen(columns), width);
    if (failure == std::errc{} && *end == '\0' && width >= kLeast) return width;
  }
  winsize window{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col >= kLeast) return window.ws_col;
  return kUsual;
}

std::string cell_text(double x) {
  if (std::isnan(x)) return "NaN";
  char buffer[32];
  const auto [end, failure] = std::to_chars(buffer, buffer + sizeof buffer, x, std::chars_format::general, 6);
  return {buffer, end};
}

std::string cell_text(std::int64_t x) { return std::to_string(x); }

std::string cell_text(const ZOR_runtime::TString& text) { return text.utf8(); }

void print_table(std::ostream& out, std::size_t rows, std::size_t columns,
                 const std::function<std::string(std::size_t row, std::size_t column)>& cell) {
  if (rows == 0 || columns == 0) {
    out << "(empty)\n";
    return;
  }
  const std::size_t shown_rows = std::min(rows, kPrintedRows);
  const std::size_t room = line_width();
  std::vector<std::vector<std::string>> texts;
  std::vector<std::size_t> widths;
  std::size_t used = 0;
  for (std::size_t column = 0; column < columns; ++column) {
    std::vector<std::string> text(shown_rows);
    std::size_t width = 0;
    for (std::size_t row = 0; row < shown_rows; ++row) {
      text[row] = cell(row, column);
      width = std::max(width, width_of(text[row]));
    }
    const std::size_t gap = column == 0 ? 0 : kGap;
    if (column > 0 && used + gap + width > room) break;
    used += gap + width;
    widths.push_back(width);
    texts.push_back(std::move(text));
  }
  for (std::size_t row = 0; row < shown_rows; ++row) {
    for (std::size_t column = 0; column < texts.size(); ++column) {
      write_aligned(out, texts[column][row], widths[column] + (column == 0 ? 0 : kGap));
    }
    out << '\n';
  }
  if (shown_rows == rows && texts.size() == columns) return;
  out << "... " + std::to_string(rows) + " rows, " + std::to_string(columns) +
             " columns\n";  // the stream's locale would group digits
}

void print_line(std::ostream& out, std::size_t count, const std::function<std::string(std::size_t)>& cell) {
  if (count == 0) {
    out << "(empty)";
    return;
  }
  const std::size_t room = line_width();
  const std::string more = "  ... " + std::to_string(count) + " cells";
  std::string line = cell(0);
  std::string cut = line;  // the longest beginning that leaves room for what is said about the rest
  for (std::size_t i = 1; i < count; ++i) {
    line += std::string(kGap, ' ') + cell(i);
    const std::size_t width = width_of(line);
    if (width > room) {
      out << cut << more;
      return;
    }
    if (width + more.size() <= room) cut = line;
  }
  out << line;
}

}  // namespace zor::detail

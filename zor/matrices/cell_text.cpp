#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "zor/matrices/cell_text_internal.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/number_writer.h"

namespace zor::detail {
namespace {

constexpr std::string_view kNotANumber = "NAN", kBeyond = "-1e999";
constexpr int kShortest = 15;

std::size_t put(char* out, std::string_view text) {
  std::memcpy(out, text.data(), text.size());
  return text.size();
}

}  // namespace

std::size_t CellFormat::write(char* out, double x) const noexcept {
  if (std::isnan(x)) return put(out, kNotANumber);
  if (std::isinf(x)) return put(out, x < 0.0 ? kBeyond : kBeyond.substr(1));
  if (decimals_ >= 0) return format_fixed(out, x, decimals_);
  if (significant_ < 0 || significant_ >= kShortest) return format_shortest(out, x);
  const int digits = significant_ < 1 ? 1 : significant_;
  const auto end = std::to_chars(out, out + kNumberBuffer, x, std::chars_format::general, digits);
  return static_cast<std::size_t>(end.ptr - out);
}

std::size_t CellFormat::write(char* out, std::int32_t x) const noexcept { return format_integer(out, x); }

bool read_cell(std::string_view word, double& value) noexcept {
  const auto number = parse_number(word);
  if (number.status == NumberStatus::kNone || number.end != word.size()) {
    if (word != kNotANumber) return false;
    value = 0.0;
  } else if (number.status == NumberStatus::kTooLarge) {
    value = word[0] == '-' ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
  } else {
    value = number.value;
  }
  return true;
}

}  // namespace zor::detail

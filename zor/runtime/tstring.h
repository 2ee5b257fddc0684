#pragma once

#include <compare>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include "zor/runtime/types.h"

/// \file  Text of 16-bit code units.
/// Positions in interfaces count from 1. Code that scans text works on `units()`, which counts from 0.

namespace ZOR_runtime {

/// UTF-16 text with value semantics. Built implicitly from UTF-8 and from UTF-16; whatever is no valid UTF-8, and every
/// lone surrogate, becomes U+FFFD, so that a TString always converts to valid UTF-8 and back without loss.
///
///     TString name = "Größe";          // five units
///     std::cout << name + " in mm";    // UTF-8 again
class ZOR_API TString {
 public:
  TString() noexcept = default;
  /// A null pointer is the empty text.
  TString(const char* utf8_text) : TString(utf8_text ? std::string_view(utf8_text) : std::string_view()) {}
  TString(const std::string& utf8_text) : TString(std::string_view(utf8_text)) {}
  TString(std::string_view utf8_text);
  TString(const Char* text) : TString(text ? std::u16string_view(text) : std::u16string_view()) {}
  TString(const std::u16string& text) : TString(std::u16string_view(text)) {}
  TString(std::u16string_view text);
  explicit TString(Char unit) : TString(std::u16string_view(&unit, 1)) {}
  TString(std::nullptr_t) = delete;

  /// The text in UTF-8.
  std::string utf8() const;
  /// The code units, counted from 0; valid until the text changes.
  std::u16string_view units() const noexcept { return units_; }

  bool empty() const noexcept { return units_.empty(); }
  /// Number of code units.
  Integer Length() const noexcept { return zor::detail::to_integer(units_.size()); }
  /// Code unit at position i, counted from 1; 0 outside.
  Char operator[](Integer i) const noexcept {
    return i >= 1 && static_cast<std::size_t>(i) <= units_.size() ? units_[static_cast<std::size_t>(i) - 1] : Char{0};
  }

  TString& operator+=(const TString& other) {
    units_ += other.units_;
    return *this;
  }
  /// Appends one code unit; a surrogate is kept as it is, since its other half may follow.
  void append_unit(Char unit) { units_ += unit; }
  void clear() noexcept { units_.clear(); }

  friend TString operator+(TString a, const TString& b) {
    a += b;
    return a;
  }
  friend bool operator==(const TString& a, const TString& b) noexcept { return a.units_ == b.units_; }
  friend std::strong_ordering operator<=>(const TString& a, const TString& b) noexcept {
    return a.units_.compare(b.units_) <=> 0;
  }

 private:
  std::u16string units_;
};

/// Writes the text in UTF-8.
ZOR_API std::ostream& operator<<(std::ostream& out, const TString& text);

}  // namespace ZOR_runtime

template <>
struct std::hash<ZOR_runtime::TString> {
  std::size_t operator()(const ZOR_runtime::TString& text) const noexcept {
    return std::hash<std::u16string_view>{}(text.units());
  }
};

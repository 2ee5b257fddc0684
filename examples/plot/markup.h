#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// \file  Text for HTML and SVG.

namespace plot {

/// The text with the characters that mean something in HTML and SVG replaced, fit for content and quoted attributes.
std::string escaped(std::string_view text);

/// Bytes as base64 (RFC 4648, with padding).
std::string base64(std::span<const std::byte> bytes);

/// Coordinate with one decimal, the locale never mattering.
std::string coordinate(double value);

}  // namespace plot

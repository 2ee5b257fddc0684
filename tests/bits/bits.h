#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// \file  Results as bits, to compare builds of the library with one another.
/// Each file of this folder adds a section; the program prints them all, one line a result. Two builds agree if they
/// print the same text.
///
///     ZOR_BITS(vectors) { print("mean of 1000", mean); }

namespace bits {

/// Prints the bits of a result of the current section.
void print(std::string_view name, double result);
/// Prints one line for all cells: a hash of their bits (FNV-1a).
void print(std::string_view name, std::span<const double> results);

/// n numbers whose signs and exponents (2^-20 to 2^20) are mixed, always the same ones.
std::vector<double> noise(std::size_t n, std::uint64_t seed = 1);

/// Enters a section in the list of the program.
struct Section {
  Section(const char* name, void (*run)());
};

}  // namespace bits

#define ZOR_BITS(section)                                                    \
  static void bits_of_##section();                                           \
  static const bits::Section section_##section(#section, bits_of_##section); \
  static void bits_of_##section()

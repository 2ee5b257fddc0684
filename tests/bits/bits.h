#pragma once

#include <string_view>

/// \file  Results as bits, to compare builds of the library with one another.
/// Each file of this folder adds a section; the program prints them all, one line `section.name bits` a result. Two
/// builds agree if they print the same text.
///
///     ZOR_BITS(vectors) { print("mean of 1000", mean); }

namespace bits {

/// Prints the bits of a result of the current section.
void print(std::string_view name, double result);

/// Enters a section in the list of the program.
struct Section {
  Section(const char* name, void (*run)());
};

}  // namespace bits

#define ZOR_BITS(section)                                                    \
  static void bits_of_##section();                                           \
  static const bits::Section section_##section(#section, bits_of_##section); \
  static void bits_of_##section()

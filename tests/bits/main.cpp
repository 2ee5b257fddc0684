#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include "bits.h"
#include "tests/level_from_environment.h"
#include "zor/kernels/dispatch.h"

namespace {

const char* current_section = "";

// Ordered by name: the order in which the linker puts the files together must not show.
std::map<std::string, void (*)()>& sections() {
  static std::map<std::string, void (*)()> all;
  return all;
}

}  // namespace

namespace bits {

void print(std::string_view name, double result) {
  std::printf("%s.%.*s %016" PRIx64 " %.17g\n", current_section, static_cast<int>(name.size()), name.data(),
              std::bit_cast<std::uint64_t>(result), result);
}

void print(std::string_view name, std::span<const double> results) {
  std::uint64_t hash = 14695981039346656037u;
  for (const double result : results) {
    hash = (hash ^ std::bit_cast<std::uint64_t>(result)) * 1099511628211u;
  }
  std::printf("%s.%.*s %016" PRIx64 " of %zu\n", current_section, static_cast<int>(name.size()), name.data(), hash,
              results.size());
}

std::vector<double> noise(std::size_t n, std::uint64_t seed) {
  std::vector<double> cells(n);
  std::uint64_t state = seed;
  const auto next = [&state] { return state = state * 6364136223846793005u + 1442695040888963407u; };
  for (double& cell : cells) {
    const double fraction = static_cast<double>(next() >> 11) * 0x1p-53 - 0.5;
    cell = std::ldexp(fraction, static_cast<int>(next() >> 32) % 21);
  }
  return cells;
}

Section::Section(const char* name, void (*run)()) { sections()[name] = run; }

}  // namespace bits

int main() {
  if (!zor::test::limit_level_from_environment()) {
    std::fprintf(stderr, "ZOR_TEST_LEVEL is none of v2, v3, v4\n");
    return 2;
  }
  std::fprintf(stderr, "level v%d\n", 2 + static_cast<int>(zor::kernels::active_level()));
  for (const auto& [name, run] : sections()) {
    current_section = name.c_str();
    run();
  }
}

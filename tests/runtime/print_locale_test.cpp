#include <gtest/gtest.h>

#include <locale>
#include <sstream>

#include "zor/runtime/print.h"

namespace ZOR_runtime {
namespace {

struct Grouping : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  char do_decimal_point() const override { return ','; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(PrintedArray, IsTheSameInEveryLocale) {
  TDynArray<TDynArray<double>> table;
  SetLength(table, 2, 1025);
  table[0][0] = 12345.5;
  std::ostringstream plain, grouped;
  grouped.imbue(std::locale(std::locale::classic(), new Grouping));
  plain << table, grouped << table;
  EXPECT_NE(plain.str().find("... 1025 rows, 2 columns"), std::string::npos) << plain.str();
  EXPECT_EQ(grouped.str(), plain.str());
}

}  // namespace
}  // namespace ZOR_runtime

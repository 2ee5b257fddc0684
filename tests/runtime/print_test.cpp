#include "zor/runtime/print.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

namespace ZOR_runtime {
namespace {

template <class T>
std::string shown(const T& x) {
  std::ostringstream out;
  out << x;
  return out.str();
}

/// A line of this many characters for the lifetime of the scope; a null pointer takes the variable away.
class Columns {
 public:
  explicit Columns(const char* width) {
    if (const char* former = std::getenv("COLUMNS")) former_ = former, had_ = true;
    set(width);
  }
  ~Columns() { set(had_ ? former_.c_str() : nullptr); }

 private:
  static void set(const char* width) { width ? ::setenv("COLUMNS", width, 1) : ::unsetenv("COLUMNS"); }
  std::string former_;
  bool had_ = false;
};

TEST(PrintedArray, IsOneLine) {
  const Columns usual("80");
  EXPECT_EQ(shown(TDynArray<double>{1.0, 2.5, -3.0}), "1  2.5  -3");
  EXPECT_EQ(shown(TDynArray<Integer>{1, -2}), "1  -2");
  EXPECT_EQ(shown(TDynArray<bool>{true, false}), "true  false");
  EXPECT_EQ(shown(TDynArray<TString>{"Größe", "x"}), "Größe  x");
  EXPECT_EQ(shown(TDynArray<double>()), "(empty)");
}

TEST(PrintedNumbers, HaveSixDigits) {
  const auto text = [](double x) { return zor::detail::cell_text(x); };
  EXPECT_EQ(text(3.14159265), "3.14159");
  EXPECT_EQ(text(1e-300), "1e-300");
  EXPECT_EQ(text(std::nan("")), "NaN");
  EXPECT_EQ(text(-std::nan("")), "NaN");
  EXPECT_EQ(text(INFINITY), "inf");
}

TEST(PrintedArray, IsCutToTheWidthOfTheLineAndSaysSo) {
  const Columns narrow("30");
  TDynArray<Integer> a;
  SetLength(a, 1000);
  const std::string text = shown(a);
  EXPECT_LE(text.size(), 30u);
  EXPECT_NE(text.find("... "), std::string::npos);
  EXPECT_NE(text.find("1000"), std::string::npos);
  SetLength(a, 10);
  EXPECT_EQ(shown(a), "0  0  0  0  0  0  0  0  0  0") << "all of it fits";
  EXPECT_EQ(shown(TDynArray<TString>{"1234567890123456789012345", "abc"}).size(), 30u) << "to the character";
}

TEST(PrintedTable, HasColumnsSideBySide) {
  const Columns usual("80");
  EXPECT_EQ(shown(TDynArray<TDynArray<double>>{{1.0, 20.0}, {-3.5, 4.0}}),
            " 1  -3.5\n"
            "20     4\n");
  EXPECT_EQ(shown(TDynArray<TDynArray<TString>>{{"ä", "bb"}, {"c"}}),
            " ä  c\n"
            "bb   \n");
  EXPECT_EQ(shown(TDynArray<TDynArray<double>>()), "(empty)\n");
}

TEST(PrintedTable, IsCutToTwentyRowsAndTheLine) {
  const Columns narrow("40");
  TDynArray<TDynArray<Integer>> a;
  SetLength(a, 50, 30);
  std::istringstream lines(shown(a));
  std::string line, last;
  int count = 0;
  while (std::getline(lines, line)) {
    EXPECT_LE(line.size(), 40u);
    ++count;
    last = line;
  }
  EXPECT_EQ(count, 21);
  EXPECT_EQ(last, "... 30 rows, 50 columns");
}

TEST(LineWidth, TakesOnlySensibleValues) {
  std::size_t usual = 0;
  {
    const Columns unset(nullptr);
    usual = zor::detail::line_width();
  }
  for (const char* bad : {"", "x", "120x", "-5", "0", "19", "99999999999999999999999"}) {
    const Columns columns(bad);
    EXPECT_EQ(zor::detail::line_width(), usual) << bad;
  }
  const Columns wide("132");
  EXPECT_EQ(zor::detail::line_width(), 132u);
}

TEST(PrintedArray, LeavesTheFormatOfTheStreamAlone) {
  std::ostringstream out;
  out.width(5);
  out << TDynArray<Integer>{7};
  out << 8;
  EXPECT_EQ(out.str().back(), '8');
}

}  // namespace
}  // namespace ZOR_runtime

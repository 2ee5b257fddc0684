// A file makes its reader allocate 16 MiB and 32 bytes for each of its own, however much it announces.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>

#include "tests/temp_file.h"
#include "zor/base/reader_limits.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/runtime/cell_memory.h"

namespace ZOR_matrix {
namespace {

using zor::test::TempFile;

struct Reader {
  const char* name;
  std::function<std::string(Integer columns, Integer rows)> announce;  // what stands in front of the cells
  std::function<bool(const TString& file, TMatrix& m)> read;
};
void PrintTo(const Reader& reader, std::ostream* out) { *out << reader.name; }

std::string words(Integer a, Integer b, const char* between) { return std::to_string(a) + between + std::to_string(b); }

bool read_stream(const TString& file, TMatrix& m) {
  TFileStream stream(file, fmOpenRead);
  return m.LoadFromStream(&stream, true);
}
bool read_asc(const TString& file, TMatrix& m) {
  TString comment;
  return m.ImportASC(file, comment) == 0;
}

const Reader kReaders[] = {
    {"plain", [](Integer c, Integer r) { return "1 1 " + words(c, r, " ") + "\n"; },
     [](const TString& file, TMatrix& m) { return m.LoadFromFile(file, true); }},
    {"ASC", [](Integer c, Integer r) { return "x\n" + words(c, r, "\n") + "\nFALSE FALSE FALSE\n"; }, read_asc},
    {"XML",
     [](Integer c, Integer r) {
       return "<matrix><numcols>" + words(c, r, "</numcols><numrows>") +
              "</numrows><cell ix=\"1\" iy=\"1\">5</cell></matrix>";
     },
     [](const TString& file, TMatrix& m) { return m.LoadFromXMLFile(file, ""); }},
    {"stream",
     [](Integer c, Integer r) {
       const double bounds[] = {1, 1, static_cast<double>(c), static_cast<double>(r)};
       return std::string(reinterpret_cast<const char*>(bounds), sizeof bounds);
     },
     read_stream},
};

class ReaderBound : public ::testing::TestWithParam<Reader> {};

TEST_P(ReaderBound, RefusesWhatItsFileCannotPayFor) {
  constexpr Integer kMuch = 1 << 24, kMost = 2147483647;
  for (const auto& [columns, rows] : {std::pair{kMuch, 1}, {1, kMuch}, {kMuch / 60, 1}, {kMost, kMost}, {kMost, 1}}) {
    SCOPED_TRACE(words(columns, rows, " x "));
    const TempFile file(GetParam().announce(columns, rows));
    TMatrix m;
    const zor::detail::AllocationLimitScope limit({.largest = std::size_t{1} << 20});
    EXPECT_FALSE(GetParam().read(file.path(), m)) << "without asking for it";
    EXPECT_EQ(m.NrOfColumns(), 1);
  }
}

INSTANTIATE_TEST_SUITE_P(All, ReaderBound, ::testing::ValuesIn(kReaders));

TEST(ReaderBound, LetsTheNarrowestColumnsOfAnHonestFilePass) {
  constexpr Integer kColumns = 1 << 20;
  std::string text = "1 1 " + words(kColumns, 1, " ") + "\n";
  for (Integer i = 0; i < kColumns; ++i) text += "7 ";
  const TempFile file(text);
  TMatrix m;
  EXPECT_TRUE(m.LoadFromFile(file.path(), true));
  EXPECT_EQ(m.NrOfColumns(), kColumns);
  EXPECT_EQ(m.GetVal(kColumns, 1), 7.0);
}

TEST(ReaderBound, HoldsForVectorsAndMarkedLines) {
  TVector v;
  EXPECT_FALSE(v.LoadFromFile(TempFile("1 16000000\n1 2 3").path(), true));
  EXPECT_TRUE(v.LoadFromFile(TempFile("1 2000000\n1 2 3").path(), true));
  std::string wide(4000, ' ');
  for (std::size_t i = 0; i < wide.size(); i += 2) wide[i] = '1';
  wide += "//dig\n";
  for (int i = 0; i < 3000; ++i) wide += "//dig\n";
  TMatrix m;
  EXPECT_FALSE(m.LoadFromFile(TempFile(wide).path(), true, true)) << "2000 columns by 3001 rows out of 22 kB";
}

}  // namespace
}  // namespace ZOR_matrix

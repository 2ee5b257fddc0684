#include "zor/base/record_codec.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "tests/temp_file.h"
#include "zor/base/reader_limits.h"
#include "zor/base/stream_numbers.h"

namespace {

using namespace zor::detail;
using zor::test::TempFile;
using ZOR_runtime::EInOutError;
using ZOR_runtime::TMemoryStream;

std::vector<Double> ramp(std::size_t n, Double from = 0.0) {
  std::vector<Double> x(n);
  std::iota(x.begin(), x.end(), from);
  return x;
}

void write_file(const TempFile& temp, const RecordHead& head, std::span<const Double> cells) {
  RecordFileWriter writer(temp.path(), head);
  writer.write(cells);
  writer.finish();
}

constexpr Integer kMost = std::numeric_limits<Integer>::max();

TEST(RecordHead, CountsCellsWithoutOverflow) {
  EXPECT_EQ((RecordHead{2, 3, 0, 0, "", 1}.cells()), 6);
  EXPECT_EQ((RecordHead{2, 3, 4, 5, "", 1}.cells()), 120);
  EXPECT_EQ((RecordHead{kMost, kMost, 2, 0, "", 1}.cells()), 2 * Int64{kMost} * kMost);
  EXPECT_EQ((RecordHead{kMost, kMost, kMost, kMost, "", 1}.cells()), -1);
  EXPECT_EQ((RecordHead{0, 3, 0, 0, "", 1}.cells()), -1);
  EXPECT_EQ((RecordHead{2, -3, -4, 5, "", 1}.cells()), -1);
}

TEST(RecordFile, LaysItsHeadOutByteForByte) {
  TempFile temp;
  write_file(temp, {2, 1, 0, 0, "id\u00E4\u20AC", kDoubleCells}, std::array{1.0, -2.0});
  const std::string bytes = temp.contents();
  ASSERT_EQ(bytes.size(), 8192u);
  EXPECT_EQ(bytes.substr(0, 21), std::string("\2\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\4id\xE4?", 21));
  EXPECT_EQ(bytes.substr(272, 4), std::string("\1\0\0\0", 4));
  EXPECT_EQ(bytes.substr(4096, 16), std::string("\0\0\0\0\0\0\xF0\x3F\0\0\0\0\0\0\0\xC0", 16));
  EXPECT_EQ(bytes.find_first_not_of('\0', 4112), bytes.npos);
  EXPECT_EQ(RecordFileReader(temp.path()).head().DataID, "id\u00E4?");
}

TEST(RecordFile, IsReadBackFromAnyCellAcrossRecords) {
  TempFile temp;
  const auto cells = ramp(1300);
  write_file(temp, {13, 10, 5, 2, TString(std::string(300, 'x')), kDoubleCells}, cells);
  EXPECT_EQ(temp.contents().size(), 4096u * 4);
  RecordFileReader reader(temp.path());
  EXPECT_TRUE(reader.is_complete());
  EXPECT_EQ(reader.head().DataID.Length(), 255);
  for (const std::size_t e : {0u, 455u, 511u, 512u, 1023u}) {
    std::vector<Double> part(200);
    reader.seek(static_cast<Int64>(e));
    reader.read(std::span<Double>(part).first(1));
    reader.read(std::span<Double>(part).subspan(1));
    EXPECT_EQ(part, ramp(200, static_cast<Double>(e)));
  }
}

TEST(RecordFile, TakesAShortLastRecordAsLongAsTheCellsAreThere) {
  TempFile whole;
  write_file(whole, {600, 1, 0, 0, "", kDoubleCells}, ramp(600));
  std::vector<Double> read(600);
  const TempFile just_enough(whole.contents().substr(0, 4096 + 4800));
  RecordFileReader reader(just_enough.path());
  EXPECT_TRUE(reader.is_complete());
  reader.read(read);
  EXPECT_EQ(read, ramp(600));
  const TempFile one_less(whole.contents().substr(0, 4096 + 4799));
  RecordFileReader short_reader(one_less.path());
  EXPECT_FALSE(short_reader.is_complete());
  EXPECT_EQ(short_reader.cells_in_file(), 599);
  EXPECT_THROW(short_reader.read(read), EInOutError);
  short_reader.seek(std::numeric_limits<Int64>::max());
  EXPECT_THROW(short_reader.read(read), EInOutError);
}

TEST(RecordFile, HasNoHeadBelow276BytesAndNoCellsBelow4096) {
  TempFile whole;
  write_file(whole, {1, 1, 0, 0, "x", kDoubleCells}, ramp(1));
  for (const std::size_t size : {0u, 275u, 276u, 4096u, 4103u}) {
    RecordFileReader reader(TempFile(whole.contents().substr(0, size)).path());
    EXPECT_EQ(reader.has_head(), size >= 276) << size;
    EXPECT_EQ(reader.head().NrColumns, size >= 276 ? 1 : 0) << size;
    EXPECT_FALSE(reader.is_complete()) << size;
  }
  EXPECT_THROW(RecordFileReader("/dev/null/x"), EInOutError);
}

TEST(RecordFile, IntegerCellsFill1024ARecordAndConvertBothWays) {
  TempFile temp;
  std::vector<Integer> cells(1025, 7), again(1025);
  cells[1] = std::numeric_limits<Integer>::min(), cells[1024] = kMost;
  RecordFileWriter writer(temp.path(), {1025, 1, 0, 0, "", kIntegerCells});
  writer.write(cells);
  writer.finish();
  EXPECT_EQ(temp.contents().size(), 3u * 4096);
  RecordFileReader reader(temp.path());
  reader.read(again);
  EXPECT_EQ(again, cells);
  std::vector<Double> as_floats(1025);
  reader.seek(0);
  reader.read(as_floats);
  EXPECT_TRUE(std::equal(as_floats.begin(), as_floats.end(), cells.begin()));

  TempFile floats;
  write_file(floats, {5, 1, 0, 0, "", kDoubleCells}, std::array{2.5, -3.5, 1e300, -HUGE_VAL, std::nan("")});
  std::vector<Integer> rounded(5);
  RecordFileReader(floats.path()).read(rounded);
  EXPECT_EQ(rounded, (std::vector<Integer>{2, -4, kMost, std::numeric_limits<Integer>::min(), 0}));
}

TEST(RecordFile, StaysTheOldOneUntilFinish) {
  const TempFile temp("old");
  { RecordFileWriter(temp.path(), {2, 1, 0, 0, "", kDoubleCells}).write(ramp(1)); }
  EXPECT_EQ(temp.contents(), "old");
}

TEST(RecordFile, AppendsTimeSlotsAndRaisesTheCountLast) {
  TempFile temp;
  const RecordHead head{3, 50, 2, 2, "t", kDoubleCells};
  write_file(temp, head, ramp(600));
  const std::string before = temp.contents();
  {
    RecordFileWriter torn(temp.path(), head, RecordFileWriter::kAppend);
    torn.write(ramp(300, 600));
  }
  EXPECT_EQ(temp.contents().substr(0, 4096 + 4800), before.substr(0, 4096 + 4800));
  RecordFileWriter writer(temp.path(), head, RecordFileWriter::kAppend);
  writer.write(ramp(300, 600));
  writer.finish();
  RecordFileReader reader(temp.path());
  EXPECT_EQ(reader.head().NrTimeSlots, 3);
  EXPECT_EQ(reader.byte_size(), 4096 * 3);
  std::vector<Double> read(900);
  reader.read(read);
  EXPECT_EQ(read, ramp(900));
}

TEST(RecordFile, AFullTargetRaises) {
  EXPECT_THROW(
      {
        RecordFileWriter writer("/dev/full", {600, 1, 0, 0, "", kDoubleCells});
        writer.write(ramp(600));
        writer.finish();
      },
      EInOutError);
}

TEST(ReaderLimits, BoundWhatAFileMayAnnounce) {
  EXPECT_TRUE(may_allocate(kFreeBytes, 0));
  EXPECT_FALSE(may_allocate(kFreeBytes + 1, 0));
  EXPECT_TRUE(may_allocate(kFreeBytes + 32 * 100, 100));
  EXPECT_FALSE(may_allocate(kFreeBytes + 32 * 100 + 1, 100));
  EXPECT_FALSE(may_allocate(checked_product(Int64{1} << 62, 2), std::numeric_limits<Int64>::max()));
  EXPECT_EQ(column_array_bytes<Double>(3, 1), 3 * (24 + 24 + 8 + 8)) << "handle, head, cell of a row, cell";
  EXPECT_EQ(column_array_bytes<Double>(kMost, std::numeric_limits<Int64>::max()), -1);
  EXPECT_EQ(column_array_bytes<Double>(-1, 1), -1);
  EXPECT_EQ(checked_product(0, 5), 0);
  EXPECT_EQ(checked_product(-1, 5), -1);
}

}  // namespace

#include "zor/base/ZOR_streams.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/temp_file.h"

namespace {

using namespace ZOR_streams;
using zor::test::TempFile;

std::string bytes_of(const TMemoryStream& stream) {
  return {reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()};
}

TEST(StreamNumbers, HaveTheLowestByteFirst) {
  TMemoryStream stream;
  WriteExtendedToStream(stream, 1.0);
  WriteLongintToStream(stream, -2);
  EXPECT_EQ(bytes_of(stream), std::string("\0\0\0\0\0\0\xF0\x3F\xFE\xFF\xFF\xFF", 12));
}

TEST(StreamNumbers, AreReadBackToTheLastBitAndTellTheEnd) {
  TMemoryStream stream;
  const Double values[] = {-0.0, 5e-324, -1.7976931348623157e308, std::numeric_limits<Double>::infinity()};
  for (const Double x : values) WriteExtendedToStream(stream, x);
  WriteLongintToStream(stream, std::numeric_limits<Integer>::min());
  stream.WriteBuffer("abc", 3);
  stream.SetPosition(0);
  Boolean failed = true;
  for (const Double x : values) {
    const Double read = ReadExtendedFromStream(stream, failed);
    EXPECT_FALSE(failed);
    EXPECT_EQ(read, x);
    EXPECT_EQ(std::signbit(read), std::signbit(x));
  }
  EXPECT_EQ(ReadLongintFromStream(stream, failed), std::numeric_limits<Integer>::min());
  EXPECT_FALSE(failed);
  EXPECT_EQ(ReadLongintFromStream(stream, failed), 0);
  EXPECT_TRUE(failed);
  EXPECT_EQ(ReadExtendedFromStream(stream, failed), 0.0);
  EXPECT_TRUE(failed);
}

TEST(StreamNumbers, RunsAreTheSameBytesAsSingleNumbers) {
  TMemoryStream run, single;
  const std::array<Double, 3> values = {1.5, -2.5, 1e300};
  zor::detail::write_numbers(run, values);
  for (const Double x : values) WriteExtendedToStream(single, x);
  EXPECT_EQ(bytes_of(run), bytes_of(single));
  run.SetPosition(0);
  std::vector<Double> read(4);
  EXPECT_EQ(zor::detail::read_numbers(run, std::span<Double>(read)), 3u);
  EXPECT_EQ(read[2], 1e300);
}

TEST(TMixedFStream, ReadsBackWhatItWrote) {
  TempFile temp;
  {
    TMixedFStream file(temp.path(), 65280);
    file.WriteLn("Gr\u00F6\u00DFe\r\nof it");
    file.WriteInteger(-7);
    file.WriteByte(200);
    file.WriteDouble(0.1);
    file.WriteLn("");
    file.WriteLn("last");
  }
  TMixedFStream file(temp.path(), 0);
  Boolean failed = true;
  EXPECT_EQ(file.ReadLn(4), "Gr\u00F6\u00DFe  of it");
  EXPECT_EQ(file.ReadInteger(failed), -7);
  EXPECT_FALSE(failed);
  EXPECT_EQ(file.ReadByte(failed), 200);
  EXPECT_EQ(file.ReadDouble(failed), 0.1);
  EXPECT_EQ(file.ReadLn(4), "");
  EXPECT_EQ(file.ReadLn(0), "last");
  EXPECT_EQ(file.ReadLn(4), "");
  EXPECT_EQ(file.ReadByte(failed), 0);
  EXPECT_TRUE(failed);
}

TEST(TMixedFStream, TakesBothLineEndsAndToldModesOnly) {
  TempFile temp("one\r\ntwo\rx\nthree\r");
  TMixedFStream file(temp.path(), 0);
  EXPECT_EQ(file.ReadLn(4), "one");
  EXPECT_EQ(file.ReadLn(4), "two\rx");
  EXPECT_EQ(file.ReadLn(4), "three\r");
  EXPECT_THROW(TMixedFStream(temp.path(), 2), EInOutError);
  EXPECT_THROW(TMixedFStream(temp.path() + ".missing", 0), EInOutError);
}

}  // namespace

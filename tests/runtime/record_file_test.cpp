#include "zor/runtime/record_file.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/temp_file.h"
#include "zor/runtime/exception.h"

namespace {

using namespace ZOR_runtime;
using zor::test::TempFile;

struct Point {
  Double x, y;
};

TEST(TRecordFile, WritesSeeksAppendsAndReadsBack) {
  TempFile temp;
  TRecordFile file(temp.path(), sizeof(Point));
  file.Rewrite();
  for (int i = 0; i < 5; ++i) {
    const Point p{1.0 * i, -1.0 * i};
    file.Write(&p);
  }
  file.Append();
  const Point last{9.0, 9.0};
  file.Write(&last);
  file.Reset();
  EXPECT_EQ(file.FileSize(), 6);
  file.Seek(3);
  Point p{};
  EXPECT_EQ(file.Read(&p), 16);
  EXPECT_EQ(p.y, -3.0);
  EXPECT_EQ(file.FilePos(), 4);
  file.Seek(5);
  file.Read(&p);
  EXPECT_EQ(p.x, 9.0);
  EXPECT_TRUE(file.Eof());
  EXPECT_EQ(file.Read(&p), 0);
}

TEST(TRecordFile, GivesAShortLastRecordFilledUpWithZeros) {
  TempFile temp("abcdefgh12");
  TRecordFile file(temp.path(), 4);
  file.Reset();
  EXPECT_EQ(file.FileSize(), 3);
  file.Seek(2);
  char record[4] = {'?', '?', '?', '?'};
  EXPECT_EQ(file.Read(record), 2);
  EXPECT_EQ(std::string(record, 4), std::string("12\0\0", 4));
  file.Seek(std::numeric_limits<Int64>::max());
  EXPECT_TRUE(file.Eof());
  EXPECT_EQ(file.Read(record), 0);
}

TEST(TRecordFile, RaisesForAMissingOrClosedFile) {
  TempFile temp;
  TRecordFile file(temp.path(), 4);
  EXPECT_THROW(file.Reset(), EInOutError);
  EXPECT_THROW(file.FileSize(), EInOutError);
}

}  // namespace

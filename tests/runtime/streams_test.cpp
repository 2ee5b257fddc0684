#include "zor/runtime/streams.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/message_of.h"
#include "tests/temp_file.h"
#include "zor/runtime/exception.h"

namespace {

using namespace ZOR_runtime;
using ::testing::HasSubstr;
using zor::test::TempFile;

template <class Action>
std::string message_of(Action action) {
  return zor::test::message_of<EInOutError>(action);
}

std::string all_of(TStream& stream) {
  stream.SetPosition(0);
  std::string bytes(static_cast<std::size_t>(stream.Size()), '?');
  stream.ReadBuffer(bytes.data(), stream.Size());
  return bytes;
}

TEST(TMemoryStream, ExampleOfItsHeader) {
  TMemoryStream stream;
  stream.WriteBuffer("abc", 3);
  stream.SetPosition(0);
  char first = 0;
  stream.ReadBuffer(&first, 1);
  EXPECT_EQ(first, 'a');
}

TEST(TMemoryStream, RefusesSizesThatNoMemoryHasAndKeepsItsBytes) {
  TMemoryStream stream;
  stream.WriteBuffer("abc", 3);
  EXPECT_THROW(stream.SetSize(std::numeric_limits<Int64>::max()), EOutOfMemory);
  stream.SetPosition(std::numeric_limits<Int64>::max());
  EXPECT_THROW(stream.WriteBuffer("x", 1), EOutOfMemory);
  EXPECT_EQ(all_of(stream), "abc");
}

TEST(TMemoryStream, GoesToAFileAndBack) {
  TempFile file;
  TMemoryStream stream, again;
  stream.WriteBuffer("line\n\0x", 7);
  stream.SaveToFile(file.path());
  again.LoadFromFile(file.path());
  EXPECT_EQ(again.Position(), 0);
  EXPECT_EQ(all_of(again), std::string("line\n\0x", 7));
  EXPECT_THROW(again.LoadFromFile(file.path() + ".missing"), EInOutError);
  EXPECT_EQ(again.Size(), 7);
}

// The same claims for both kinds of stream.
class AnyStream : public ::testing::TestWithParam<bool> {
 protected:
  AnyStream() {
    if (GetParam()) {
      stream_ = std::make_unique<TFileStream>(file_.path(), fmCreate);
    } else {
      stream_ = std::make_unique<TMemoryStream>();
    }
  }
  TempFile file_;
  std::unique_ptr<TStream> stream_;
};
INSTANTIATE_TEST_SUITE_P(Streams, AnyStream, ::testing::Bool());

TEST_P(AnyStream, WritingOverTheMiddleKeepsTheRest) {
  stream_->WriteBuffer("0123456789", 10);
  stream_->SetPosition(3);
  stream_->WriteBuffer("ab", 2);
  EXPECT_EQ(stream_->Position(), 5);
  EXPECT_EQ(all_of(*stream_), "012ab56789");
}

TEST_P(AnyStream, AGapIsFilledWithZeros) {
  stream_->SetPosition(2);
  stream_->WriteBuffer("x", 1);
  EXPECT_EQ(all_of(*stream_), std::string("\0\0x", 3));
}

TEST_P(AnyStream, SeeksFromAllOriginsAndNeverBeforeTheBeginning) {
  stream_->WriteBuffer("0123456789", 10);
  EXPECT_EQ(stream_->Seek(-3, soEnd), 7);
  EXPECT_EQ(stream_->Seek(-3, soCurrent), 4);
  EXPECT_EQ(stream_->Seek(-300, soCurrent), 0);
  EXPECT_EQ(stream_->Seek(5, soEnd), 15);
  char byte = 0;
  EXPECT_EQ(stream_->Read(&byte, 1), 0);
  EXPECT_EQ(stream_->Seek(std::numeric_limits<Int64>::max(), soCurrent), std::numeric_limits<Int64>::max());
}

TEST_P(AnyStream, ReadGivesWhatIsThereAndReadBufferRaises) {
  stream_->WriteBuffer("abc", 3);
  stream_->SetPosition(1);
  char bytes[5] = {};
  EXPECT_EQ(stream_->Read(bytes, 5), 2);
  EXPECT_EQ(stream_->Read(bytes, -1), 0);
  stream_->SetPosition(1);
  EXPECT_THAT(message_of([&] { stream_->ReadBuffer(bytes, 5); }), HasSubstr("unexpected end"));
}

TEST_P(AnyStream, SetSizeCutsAndExtends) {
  stream_->WriteBuffer("abcdef", 6);
  stream_->SetSize(2);
  EXPECT_EQ(stream_->Size(), 2);
  stream_->SetSize(4);
  EXPECT_EQ(all_of(*stream_), std::string("ab\0\0", 4));
}

// Random reads, writes and moves of sizes around that of the buffer, against the plainest stream there is: a string.
TEST_P(AnyStream, AgreesWithAStringUnderRandomUse) {
  std::mt19937 random(7);
  std::string model;
  std::size_t at = 0;
  for (int step = 0; step < 600; ++step) {
    const std::size_t n = std::vector<std::size_t>{1, 8, 1000, 32767, 32768, 65536, 100000}[random() % 7];
    switch (random() % 3) {
      case 0: {
        const std::string bytes(n, static_cast<char>('a' + step % 26));
        stream_->WriteBuffer(bytes.data(), static_cast<Int64>(n));
        if (model.size() < at + n) model.resize(at + n);
        model.replace(at, n, bytes);
        at += n;
        break;
      }
      case 1: {
        std::string bytes(n, '?');
        bytes.resize(static_cast<std::size_t>(stream_->Read(bytes.data(), static_cast<Int64>(n))));
        ASSERT_EQ(bytes, at < model.size() ? model.substr(at, n) : "") << step;
        at += bytes.size();
        break;
      }
      default:
        at = random() % (std::min<std::size_t>(model.size(), 300000) + 10);
        stream_->SetPosition(static_cast<Int64>(at));
    }
    ASSERT_EQ(stream_->Position(), static_cast<Int64>(at));
    ASSERT_EQ(stream_->Size(), static_cast<Int64>(model.size())) << step;
  }
  EXPECT_EQ(all_of(*stream_), model);
}

TEST(TStream, CopyFromTakesAllOrACount) {
  TMemoryStream from, to;
  from.WriteBuffer("abcdef", 6);
  EXPECT_EQ(to.CopyFrom(from, 0), 6);
  from.SetPosition(4);
  EXPECT_EQ(to.CopyFrom(from, 1), 1);
  EXPECT_EQ(all_of(to), "abcdefe");
  EXPECT_THROW(to.CopyFrom(from, 5), EInOutError);
}

TEST(TFileStream, OpensWithEachMode) {
  TempFile file("old");
  {
    TFileStream stream(file.path(), fmAppend);
    stream.WriteBuffer("+new", 4);
  }
  EXPECT_EQ(file.contents(), "old+new");
  {
    TFileStream stream(file.path(), fmOpenReadWrite);
    stream.WriteBuffer("O", 1);
    EXPECT_EQ(all_of(stream), "Old+new");
  }
  { TFileStream stream(file.path(), fmCreate); }
  EXPECT_EQ(file.contents(), "");
}

TEST(TFileStream, MessagesNameFileAndReason) {
  TempFile missing;
  EXPECT_EQ(message_of([&] { TFileStream(missing.path(), fmOpenRead); }),
            "cannot open \"" + missing.path() + "\": No such file or directory");
  EXPECT_THAT(message_of([&] { TFileStream(missing.path(), fmOpenReadWrite); }), HasSubstr("No such file"));
  EXPECT_THAT(message_of([&] { TFileStream(missing.path(), 77); }), HasSubstr("unknown mode 77"));
  EXPECT_THAT(message_of([&] { TFileStream(missing.path() + "/x", fmCreate); }), HasSubstr("cannot create"));
  EXPECT_THAT(message_of([&] { TFileStream("/", fmOpenRead); }), HasSubstr("Is a directory"));
  const std::string with_zero = missing.path() + std::string("\0.txt", 5);
  EXPECT_THAT(message_of([&] { TFileStream(with_zero, fmCreate); }), HasSubstr("cannot create"));
  TempFile there("x");
  TFileStream readable(there.path(), fmOpenRead);
  readable.WriteBuffer("y", 1);
  EXPECT_THAT(message_of([&] { readable.Flush(); }), HasSubstr("cannot write \"" + there.path()));
  readable.Close();
  EXPECT_THAT(message_of([&] { readable.Size(); }), HasSubstr("the file is closed"));
}

TEST(TFileStream, ATargetWithoutRoomRaisesAtFlushCloseOrLargeBlock) {
  const std::string block(100000, 'x');
  EXPECT_THROW(TFileStream("/dev/full", fmCreate).WriteBuffer(block.data(), 100000), EInOutError);
  TFileStream small("/dev/full", fmCreate);
  small.WriteBuffer("x", 1);
  EXPECT_THAT(message_of([&] { small.Close(); }), HasSubstr("No space left"));
  EXPECT_NO_THROW(small.Close());
  TFileStream flushed("/dev/full", fmCreate);
  flushed.WriteBuffer("x", 1);
  EXPECT_THROW(flushed.Flush(), EInOutError);
}

TEST(TFileStream, RefusesToWriteBeyondTheHighestPosition) {
  TempFile file;
  TFileStream stream(file.path(), fmCreate);
  stream.SetPosition(std::numeric_limits<Int64>::max() - 1);
  EXPECT_THAT(message_of([&] { stream.WriteBuffer("xy", 2); }), HasSubstr("beyond the highest position"));
  EXPECT_EQ(stream.Size(), 0);
}

TEST(TFileStream, TakesPositionsBeyond32Bits) {
  TempFile file;
  TFileStream stream(file.path(), fmCreate);
  const Int64 far = (Int64{1} << 33) + 5;
  stream.SetPosition(far);
  stream.WriteBuffer("end", 3);
  EXPECT_EQ(stream.Size(), far + 3);
  stream.SetPosition(far + 1);
  char bytes[2];
  stream.ReadBuffer(bytes, 2);
  EXPECT_EQ(std::string(bytes, 2), "nd");
}

}  // namespace

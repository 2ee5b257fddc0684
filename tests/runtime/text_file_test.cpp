#include "zor/runtime/text_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/message_of.h"
#include "tests/temp_file.h"
#include "zor/runtime/exception.h"

namespace {

using namespace ZOR_runtime;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using zor::test::TempFile;

// The units of what is left, as a string of UTF-16.
std::u16string rest_of(TTextFile& file) {
  std::u16string units;
  for (Char unit; file.ReadChar(unit);) units += unit;
  return units;
}

std::vector<std::string> lines_of(std::string_view text) {
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  std::vector<std::string> lines;
  for (TString line; file.ReadLn(line);) lines.push_back(line.utf8());
  return lines;
}

std::vector<std::string> words_of(std::string_view text) {
  TTextFile file;
  file.AssignText(text);
  file.Reset();
  std::vector<std::string> words;
  for (auto word = file.read_word(); !word.empty(); word = file.read_word()) words.emplace_back(word);
  return words;
}

TEST(TTextFile, ExampleOfItsHeader) {
  TempFile temp;
  TTextFile file(temp.path());
  file.Rewrite();
  file.WriteFloat(1.5, 1, 3);
  file.WriteLn();
  file.Reset();
  EXPECT_EQ(temp.contents(), "1.500\n");
  Double x = 0.0;
  EXPECT_TRUE(file.ReadFloat(x));
  EXPECT_EQ(x, 1.5);
}

TEST(TTextFileLines, EndWithLineFeedOrBothAndTheLastMayLackIt) {
  EXPECT_THAT(lines_of("a\nb\r\n\nd"), ElementsAre("a", "b", "", "d"));
  EXPECT_THAT(lines_of("a\n"), ElementsAre("a"));
  EXPECT_THAT(lines_of(""), ElementsAre());
  EXPECT_THAT(lines_of("\n"), ElementsAre(""));
  EXPECT_THAT(lines_of("a\rb\n\xEF\xBB\xBF"), ElementsAre("a\rb", "\xEF\xBB\xBF"));
}

TEST(TTextFileLines, KeepZeroBytesAndReplaceBadText) {
  EXPECT_THAT(lines_of(std::string_view("a\0b\n", 4)), ElementsAre(std::string("a\0b", 3)));
  EXPECT_THAT(lines_of("x\xFFy\xE2\x82\n\xC3"), ElementsAre("x\uFFFDy\uFFFD", "\uFFFD"));
}

TEST(TTextFileWords, AreSeparatedByBlanksAndLineEnds) {
  EXPECT_THAT(words_of(" 1\t2\v3\f4\r\n5 "), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(words_of(" \n "), ElementsAre());
  EXPECT_THAT(words_of("\u00A0a\u00A0b\uFEFF \u00A0 c"), ElementsAre("a\u00A0b", "c"));
}

TEST(TTextFileWords, BlanksAreSixBytesOfAllAtAnyPlace) {
  for (std::size_t before = 0; before < 19; ++before) {
    for (int byte = 0; byte < 256; ++byte) {
      const bool blank = byte == 32 || (byte >= 9 && byte <= 13);
      const std::string text =
          std::string(before, before % 2 ? ' ' : '\n') + static_cast<char>(byte) + "z and more text";
      TTextFile file;
      file.AssignText(text);
      file.Reset();
      file.skip_blanks();
      ASSERT_EQ(file.peek_byte(), blank ? 'z' : byte) << before << " blanks, byte " << byte;
    }
  }
}

TEST(TTextFile, PassesOverOneByteOrderMarkAtTheBeginning) {
  TTextFile file;
  file.AssignText("\xEF\xBB\xBFx");
  file.Reset();
  EXPECT_EQ(file.Position(), 3);
  EXPECT_EQ(rest_of(file), u"x");
  file.Reset();
  EXPECT_EQ(file.Position(), 3);
  EXPECT_THAT(lines_of("\xEF\xBB\xBF\xEF\xBB\xBF"), ElementsAre("\uFEFF"));
  EXPECT_THAT(lines_of("\xEF\xBB"), ElementsAre("\uFFFD"));
}

TEST(TTextFileUnits, ComeOneByOneWithOneOfLookAhead) {
  TTextFile file;
  file.AssignText("a\u00E4\u20AC\U0001F600\r\n");
  file.Reset();
  Char ahead = 0, unit = 0;
  std::u16string units;
  while (file.PeekChar(ahead)) {
    const Int64 place = file.Position();
    EXPECT_TRUE(file.PeekChar(unit));
    EXPECT_EQ(file.Position(), place);
    EXPECT_FALSE(file.Eof());
    ASSERT_TRUE(file.ReadChar(unit));
    EXPECT_EQ(unit, ahead);
    units += unit;
  }
  EXPECT_EQ(units, u"a\u00E4\u20AC\U0001F600\r\n");
  EXPECT_TRUE(file.Eof());
  EXPECT_FALSE(file.ReadChar(unit));
  EXPECT_EQ(unit, 0);
}

TEST(TTextFileNumbers, AreWordsInThePlainForm) {
  TTextFile file;
  file.AssignText("1.5\n+2e1 -.5 1e-400\t3");
  file.Reset();
  for (const Double expected : {1.5, 20.0, -0.5, 0.0, 3.0}) {
    Double x = -1.0;
    EXPECT_TRUE(file.ReadFloat(x));
    EXPECT_EQ(x, expected);
  }
  Double x = 7.0;
  EXPECT_FALSE(file.ReadFloat(x));
  EXPECT_EQ(x, 7.0);
}

TEST(TTextFileNumbers, OthersAreTakenAndLeaveTheVariableAlone) {
  TTextFile file;
  file.AssignText("inf nan 0x10 1e400 1,5 1.5x - + . \u00A02\u00A0 2147483648 -2147483648 1.0 12");
  file.Reset();
  Double x = 7.0;
  for (int i = 0; i < 9; ++i) EXPECT_FALSE(file.ReadFloat(x)) << i;
  EXPECT_EQ(x, 7.0);
  EXPECT_TRUE(file.ReadFloat(x));
  EXPECT_EQ(x, 2.0);
  Integer i = 5;
  EXPECT_FALSE(file.ReadInteger(i));
  EXPECT_EQ(i, 5);
  EXPECT_TRUE(file.ReadInteger(i));
  EXPECT_EQ(i, std::numeric_limits<Integer>::min());
  EXPECT_FALSE(file.ReadInteger(i));
  EXPECT_TRUE(file.ReadInteger(i));
  EXPECT_EQ(i, 12);
}

TEST(TTextFileNumbers, IgnoreTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // where it is installed
  TMemoryStream stream;
  TTextFile file;
  file.AssignStream(&stream);
  file.Rewrite();
  file.WriteFloat(1234.5, 1, 1);
  file.Close();
  std::setlocale(LC_ALL, before.c_str());
  const auto bytes = stream.Bytes();
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()), "1234.5");
}

// Lines, words and characters longer than the buffer and across its border must read as in memory.
TEST(TTextFile, ReadsAFileAsItReadsMemory) {
  std::mt19937 random(3);
  std::string text;
  while (text.size() < 400000) {
    const std::string pieces[] = {"word", " ", "\n", "\r\n", "1.25", "\u20AC", "\U0001F600", "\t-3e5 ", "\xFF"};
    text += pieces[random() % std::size(pieces)];
    if (random() % 20000 == 0) text += std::string(150000, 'L') + " ";
  }
  TempFile temp(text);
  TTextFile from_file(temp.path()), from_memory;
  from_memory.AssignText(text);
  from_file.Reset(), from_memory.Reset();
  for (int step = 0; !from_memory.Eof(); ++step) {
    ASSERT_EQ(from_file.Position(), from_memory.Position());
    ASSERT_EQ(from_file.Remaining(), from_memory.Remaining());
    ASSERT_EQ(from_file.Eoln(), from_memory.Eoln());
    Char a = 0, b = 0;
    Double x = 0.0, y = 0.0;
    switch (random() % 5) {
      case 0:
        ASSERT_EQ(from_file.ReadLn(), from_memory.ReadLn());
        break;
      case 1:
        ASSERT_EQ(from_file.ReadWord(), from_memory.ReadWord());
        break;
      case 2:
        ASSERT_EQ(from_file.PeekChar(a), from_memory.PeekChar(b));
        ASSERT_EQ(a, b);
        [[fallthrough]];
      case 3:
        ASSERT_EQ(from_file.ReadChar(a), from_memory.ReadChar(b));
        ASSERT_EQ(a, b);
        break;
      default:
        ASSERT_EQ(from_file.ReadFloat(x), from_memory.ReadFloat(y));
        ASSERT_EQ(x, y);
    }
  }
  EXPECT_TRUE(from_file.Eof());
  from_file.SetPosition(5);
  from_memory.SetPosition(5);
  EXPECT_EQ(from_file.ReadLn(), from_memory.ReadLn());
}

TEST(TTextFile, EveryKindOfTextIsReadBack) {
  TempFile temp;
  TTextFile file(temp.path());
  file.Rewrite();
  file.Write("plain ");
  file.Write(std::string_view("view "));
  file.Write(TString("\u00E4\U0001F600 "));
  file.WriteInteger(-9223372036854775807 - 1);
  file.WriteLn(TString(" line"));
  file.WriteFloat(-0.25, 8, 2);
  file.WriteFloat(1234.5, 13, -1);
  EXPECT_EQ(file.Position(), 65);
  file.WriteLn(std::string(200000, 'x'));
  file.Flush();
  EXPECT_EQ(temp.contents().substr(0, 65),
            "plain view \u00E4\U0001F600 -9223372036854775808 line\n   -0.25 1.2345E+0003");
  file.Append();
  file.WriteLn("more");
  file.Close();
  EXPECT_EQ(temp.contents().size(), 65u + 200001u + 5u);
}

TEST(TTextFile, LeavesAStreamBehindWhatWasTaken) {
  TMemoryStream stream;
  stream.WriteBuffer("skip one two three", 18);
  stream.SetPosition(5);
  TTextFile file;
  file.AssignStream(&stream);
  file.Reset();
  EXPECT_EQ(file.Remaining(), 13);
  EXPECT_EQ(file.ReadWord(), "one");
  file.Close();
  EXPECT_EQ(stream.Position(), 8);
}

TEST(TTextFile, ReadsAPipe) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const std::string text = std::string(40000, 'x') + " 2.5\nlast";
  ASSERT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  ::close(ends[1]);
  TTextFile file("/dev/fd/" + std::to_string(ends[0]));
  file.Reset();
  ::close(ends[0]);
  EXPECT_EQ(file.ReadWord().Length(), 40000);
  Double x = 0.0;
  EXPECT_TRUE(file.ReadFloat(x));
  EXPECT_EQ(x, 2.5);
  EXPECT_EQ(file.ReadLn(), "");
  EXPECT_EQ(file.ReadLn(), "last");
  EXPECT_TRUE(file.Eof());
}

TEST(TTextFileErrors, NameFileAndReason) {
  const auto message_of = [](auto action) { return zor::test::message_of<EInOutError>(action); };
  TempFile temp;
  TTextFile file(temp.path());
  EXPECT_THAT(message_of([&] { file.Reset(); }), HasSubstr("cannot open \"" + temp.path() + "\": No such file"));
  EXPECT_THAT(message_of([&] { file.Eof(); }), HasSubstr("not open for reading"));
  EXPECT_THAT(message_of([&] { file.WriteLn("x"); }), HasSubstr("not open for writing"));
  file.Rewrite();
  EXPECT_THAT(message_of([&] { file.ReadLn(); }), HasSubstr("not open for reading"));
  file.AssignText("x");
  EXPECT_THAT(message_of([&] { file.Rewrite(); }), HasSubstr("can only be read"));
  TTextFile folder("/");
  EXPECT_THAT(message_of([&] { folder.Reset(); }), HasSubstr("Is a directory"));
}

TEST(TTextFileErrors, ATargetWithoutRoomIsToldAtFlushCloseOrAFullBuffer) {
  TTextFile file("/dev/full");
  file.Rewrite();
  file.WriteLn("x");
  EXPECT_THROW(file.Close(), EInOutError);
  EXPECT_FALSE(file.IsOpen());
  file.Rewrite();
  file.WriteLn("x");
  EXPECT_THROW(file.Flush(), EInOutError);
  file.Close();
  file.Rewrite();
  EXPECT_THROW(for (int i = 0; i < 100000; ++i) file.WriteFloat(i, 12, 6), EInOutError);
}

}  // namespace

#include "zor/scalar/date_text.h"

#include <gtest/gtest.h>

using namespace ZOR_math1;

namespace {

// The result, and the number of characters that were passed in `passed`.
Double scan(const TString& text, const TString& format, TLanguage language = lgEnglish, Integer* passed = nullptr) {
  Integer at = 1;
  const Double value = ScanDateTime(text, format, language, at);
  if (passed) *passed = at - 1;
  return value;
}

bool refused(const TString& text, const TString& format, TLanguage language = lgEnglish) {
  Integer passed = -1;
  return scan(text, format, language, &passed) == 0.0 && passed == 0;
}

// Serial days as spreadsheets number them from 1 March 1900 on.
TEST(ScanDateTime, CountsDaysSinceTheEndOf1899) {
  EXPECT_EQ(scan("1900-03-01", "yyyy-mm-dd"), 61);
  EXPECT_EQ(scan("1970-01-01", "yyyy-mm-dd"), 25569);
  EXPECT_EQ(scan("29.2.2024", "d.m.yyyy"), 45351);
  EXPECT_EQ(scan("20000101", "yyyymmdd"), 36526);
  EXPECT_EQ(scan("01/01/00", "mm/dd/yy"), 36526);
  EXPECT_EQ(scan("01/01/50", "mm/dd/yy"), 18264);
  EXPECT_EQ(scan("1899-12-29 12:00", "yyyy-mm-dd hh:nn"), -0.5);
  EXPECT_EQ(scan("0001-01-01", "yyyy-mm-dd"), -693593);
  EXPECT_EQ(scan("2024", "yyyy"), 45292);
  Integer passed = 0;
  EXPECT_EQ(scan("30.12.1899", "dd.mm.yyyy", lgEnglish, &passed), 0.0);
  EXPECT_EQ(passed, 10);
}

TEST(ScanDateTime, ReadsTimesAsFractionsOfADay) {
  EXPECT_EQ(scan("18:00", "h:n"), 0.75);
  EXPECT_EQ(scan("6:00 PM", "h:n am/pm"), 0.75);
  EXPECT_EQ(scan("12:30am", "h:n AM/PM"), 0.5 / 24);
  EXPECT_EQ(scan("12:00 pm", "h:n am/pm"), 0.5);
  EXPECT_EQ(scan("23:59:59.999", "hh:nn:ss.zzz"), 86'399'999 / 86'400'000.0);
  EXPECT_EQ(scan("0:0:0.25", "h:n:s.z"), 25 / 86'400'000.0);
  EXPECT_EQ(scan("2024-03-04T15:30", "yyyy-mm-ddThh:nn"), 45355 + 15.5 / 24);
}

TEST(ScanDateTime, KnowsTheNamesOfFiveLanguages) {
  Integer passed = 0;
  EXPECT_EQ(scan("Mon, 4 March 2024 15:30 h", "ddd, d mmmm yyyy h:n", lgEnglish, &passed), 45355 + 15.5 / 24);
  EXPECT_EQ(passed, 23);
  EXPECT_EQ(scan("Montag, 4. MÄRZ 2024", "dddd, d. mmmm yyyy", lgGerman), 45355);
  EXPECT_EQ(scan("lundi 4 mars 2024", "dddd d mmmm yyyy", lgFrench), 45355);
  EXPECT_EQ(scan("LUNEDÌ 4 marzo 2024", "dddd d mmmm yyyy", lgItalian), 45355);
  EXPECT_EQ(scan("miércoles, 6 mar 2024", "ddd, d mmm yyyy", lgSpanish), 45357);
  EXPECT_EQ(scan("1 Sept 2024", "d mmm yyyy"), 45536);
  EXPECT_EQ(scan("1juin2024", "dmmmyyyy", lgFrench), 45444);
  EXPECT_EQ(scan("1 juil 2024", "d mmm yyyy", lgFrench), 45474);
  EXPECT_EQ(scan("4 March 2024", "d mmm yyyy", static_cast<TLanguage>(77)), 45355);
  EXPECT_TRUE(refused("1 jui 2024", "d mmm yyyy", lgFrench));
  EXPECT_TRUE(refused("4 March 2024", "d mmmm yyyy", lgGerman));
  EXPECT_TRUE(refused("4 Ma 2024", "d mmm yyyy"));
}

TEST(ScanDateTime, EachMonthOfEachLanguageIsFoundInFullAndCut) {
  const char* const firsts[] = {"January February March April May June July August September October November December",
                                "Januar Februar März April Mai Juni Juli August September Oktober November Dezember",
                                "janvier février mars avril mai juin juillet août septembre octobre novembre décembre",
                                "gennaio febbraio marzo aprile maggio giugno luglio agosto settembre ottobre novembre "
                                "dicembre",
                                "enero febrero marzo abril mayo junio julio agosto septiembre octubre noviembre "
                                "diciembre"};
  for (int language = 0; language < 5; ++language) {
    const TString names = firsts[language];
    Integer at = 1;
    for (int month = 1; month <= 12; ++month) {
      Integer number_at = 1;
      const Double expected =
          ScanDateTime("2023 " + std::to_string(month), "yyyy m", static_cast<TLanguage>(language), number_at);
      Integer cut_at = 1, year_at = at;
      const TString cut = Copy(names, at, language == lgFrench ? 4 : 3) + " 2023";
      EXPECT_EQ(ScanDateTime(cut, "mmm yyyy", static_cast<TLanguage>(language), cut_at), expected) << cut;
      // A name without a year is no date: the year stands in front of the list.
      TString line = "2023 " + Copy(names, at, names.Length());
      year_at = 1;
      EXPECT_EQ(ScanDateTime(line, "yyyy mmmm ", static_cast<TLanguage>(language), year_at), expected) << line;
      at += year_at - 6;
    }
    EXPECT_EQ(at, names.Length() + 1);
  }
}

TEST(ScanDateTime, RefusesWhatDoesNotFitOrExist) {
  EXPECT_TRUE(refused("30.02.2024", "dd.mm.yyyy"));
  EXPECT_TRUE(refused("29.02.1900", "dd.mm.yyyy"));
  EXPECT_TRUE(refused("0.1.2024", "d.m.yyyy"));
  EXPECT_TRUE(refused("1.13.2024", "d.m.yyyy"));
  EXPECT_TRUE(refused("1.1.0000", "d.m.yyyy"));
  EXPECT_TRUE(refused("1.1.24", "d.m.yyyy"));
  EXPECT_TRUE(refused("1.1.", "d.m."));
  EXPECT_TRUE(refused("24:00", "h:n"));
  EXPECT_TRUE(refused("12:60", "h:n"));
  EXPECT_TRUE(refused("12:00:60", "h:n:s"));
  EXPECT_TRUE(refused("13:00 pm", "h:n am/pm"));
  EXPECT_TRUE(refused("0:00 am", "h:n am/pm"));
  EXPECT_TRUE(refused("1:00 xm", "h:n am/pm"));
  EXPECT_TRUE(refused("1:2.5", "n:s.zzz"));
  EXPECT_TRUE(refused("2024-01-0", "yyyy-mm-ddx"));
  EXPECT_TRUE(refused("", "yyyy"));
  EXPECT_TRUE(refused("  7", ""));
}

TEST(ScanDateTime, StartsAtCurPosBehindBlanks) {
  Integer at = 5;
  EXPECT_EQ(ScanDateTime("on:\t  2024-01-01 .", "yyyy-mm-dd", lgEnglish, at), 45292);
  EXPECT_EQ(at, 17);
  at = -3;
  EXPECT_EQ(ScanDateTime("12", "h", lgEnglish, at), 0.5);
  EXPECT_EQ(at, 3);
  EXPECT_EQ(ScanDateTime("12", "h", lgEnglish, at), 0.0);
  EXPECT_EQ(at, 3);
}

}  // namespace

#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Dates and times that stand somewhere in a text.
///
///     Integer at = 1;
///     ScanDateTime("Mon, 4 March 2024 15:30 h", "ddd, d mmmm yyyy h:n", lgEnglish, at);   // 45355.645833..., at = 24
///     at = 1;
///     ScanDateTime("29.02.2024", "dd.mm.yyyy", lgGerman, at);                             // 45351, at = 11

namespace ZOR_math1 {

using namespace ZOR_zorbase;

/// Reads a date, a time or both, written as Format tells: days since 30 December 1899 in the Gregorian calendar, which
/// is used for all years, and the time as a fraction of a day. Times before that date count forward too: noon of the
/// day before is -0.5. Starts at CurPos (from 1; below 1 counts as 1), skips blanks, and moves CurPos behind what it
/// read.
///
/// | In Format | In the text |
/// |---|---|
/// | d, dd | day of the month, one or two digits |
/// | ddd, dddd | name of the day of the week, which is not compared with the date |
/// | m, mm | month, one or two digits |
/// | mmm, mmmm | name of the month |
/// | yy | year, two digits: 00 to 49 are 2000 to 2049, others 1950 to 1999 |
/// | yyyy | year, four digits |
/// | h, hh | hour, one or two digits, from 0 to 23; with am/pm from 1 to 12 |
/// | n, nn | minute, one or two digits |
/// | s, ss | second, one or two digits, below 60 |
/// | z, zzz | thousandths of a second: one to three digits, exactly three |
/// | am/pm | "am" or "pm" |
/// | a blank | any run of blanks, also none |
/// | others | themselves |
///
/// Letters of Format may stand in either case; a longer run counts as the longest one of its letter, y as yy and zz as
/// z. Names are those of Language (an unknown one counts as English), in full or cut to three letters or more, in
/// either case; French "jui" is no month, since two begin with it. Of parts that stand twice the last one counts.
/// Without day or month the first is taken; a date needs its year; without any part of a date the result is the time
/// alone. If the text does not fit, or the date or time does not exist: 0.0, and CurPos stays.
ZOR_API Double ScanDateTime(const TString& Instring, const TString& Format, TLanguage Language, Integer& CurPos);

}  // namespace ZOR_math1

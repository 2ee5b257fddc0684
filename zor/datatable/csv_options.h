#pragma once

#include <optional>
#include <vector>

#include "zor/datatable/table_types.h"

/// \file  How delimited text is read.
/// UTF-8 with or without byte order mark; lines end with LF, CR or CRLF; lines without a character are passed over.
/// A quoted field may hold delimiters, doubled quotes and line ends. Runs of blanks are one delimiter where the blank
/// is one. Blanks around a field do not count. The width is that of the first record: shorter ones are filled with
/// missing cells. A decimal comma is taken where the comma does not delimit.
///
/// Empty fields, NA, N/A, NaN, NULL and ###, in any case of letters, are missing: 0.0 and empty. A column with texts
/// and no number becomes stNominal, its texts identifiers in the order of their appearance; two texts that agree in the
/// first 10 bytes stay apart, the later one ends in "~2" and so on. Bad cells are missing, too: a text in a column with
/// numbers, a number that a double cannot hold, the 152nd identifier; a field behind the width counts as one.

namespace ZOR_datatable {

/// Results of ImportFromCSV, beside the number of bad cells.
inline constexpr Integer kCSVUnreadable = -1;
inline constexpr Integer kCSVBadArgument = -2;  ///< NLinesSkip below 0, or an unknown delimiter.
inline constexpr Integer kCSVNoRecord = -3;     ///< No record of data.
inline constexpr Integer kCSVOpenQuote = -4;    ///< A quote is never closed.
inline constexpr Integer kCSVAborted = -5;      ///< AbortMathProc, which is cleared on entry, was set meanwhile.
inline constexpr Integer kCSVNoFile = -8;
inline constexpr Integer kCSVTooLarge = -9;  ///< More cells than the file can hold.

/// What is not set is found from the first lines of the data.
struct TCSVOptions {
  std::optional<TCSVDelimiters> Delimiter;
  std::optional<Boolean> ColHeaders;  ///< The first record holds column names: found if none of its fields is a number.
  Boolean RowHeaders = false;         ///< The first field of a record is a row name.
  std::optional<Boolean> DecimalComma;  ///< true: only the comma, false: only the point is a decimal sign.
  Integer NLinesSkip = 0;               ///< Lines to pass over at the beginning.
  Integer LastImportLine = 0;           ///< No record that begins behind this line; below 1: all.
  char CommentSign = 0;                 ///< Lines that begin with it are passed over; 0: none.
};

/// A field that could not be taken.
struct TBadCSVField {
  Int64 Line = 0;      ///< Of the file, from 1; that on which the record begins.
  Integer Column = 0;  ///< Of the table, from 1.
  TString Text;
};

/// What the last import found.
struct TCSVReport {
  TCSVDelimiters Delimiter = csvComma;
  Boolean ColHeaders = false;
  Int64 BadFields = 0;              ///< Number of bad cells.
  std::vector<TBadCSVField> First;  ///< The first ten of them, by line.
};

}  // namespace ZOR_datatable

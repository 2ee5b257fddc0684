#pragma once

#include <string_view>

#include "zor/base/ZOR_zorbase.h"

/// \file  The ASC text form, which vectors, matrices, tables and curve fits share.
///
///     free comment, one line
///     2<tab>;nr. of columns
///     3<tab>;nr. of rows
///     FALSE TRUE FALSE FALSE<tab>;row attributes, column names, row names, nominal variables
///     "first"<tab>"second"
///     1.5<tab>2.5
/// A data row is: a number if there are row attributes, a quoted name if there are row names, then the cells with tabs
/// between them. "NAN" and "###" stand for a missing value. Readers take blanks and line ends alike as separators.

namespace zor::detail {

using ZOR_runtime::Boolean;
using ZOR_runtime::Double;
using ZOR_runtime::Int64;
using ZOR_runtime::Integer;
using ZOR_runtime::TString;
using ZOR_runtime::TTextFile;

/// The four header lines.
struct AscHeader {
  TString Comment;
  Integer NrCols = 0, NrRows = 0;
  Boolean RowAttrib = false, ColNames = false, RowNames = false, NomVars = false;
};

/// Codes of read_asc_header and ReadHeaderOfASC.
inline constexpr Integer kAscUnreadable = -1;  ///< The file cannot be opened or read.
inline constexpr Integer kAscTooShort = -2;    ///< Fewer than four lines.
inline constexpr Integer kAscBadCount = -3;    ///< A count is no number, or negative.
inline constexpr Integer kAscBadFlags = -4;    ///< The flags are not three or four words TRUE or FALSE.
/// Codes of the importers.
inline constexpr Integer kAscBadAttribute = -5;  ///< A row attribute can't be read.
inline constexpr Integer kAscBadValue = -6;      ///< A value is no number.
inline constexpr Integer kAscBadColumns = -7;    ///< A number of columns that the importer cannot take.
inline constexpr Integer kAscNoFile = -8;        ///< The file doesn't exist.
inline constexpr Integer kAscNoCells = -9;       ///< No columns or no rows, or more than the file can hold.

/// Reads the header and leaves the file behind its fourth line. 0, or a code, with the header as far as it was read.
/// Of three flag words, as older files have, the fourth is taken as FALSE; case is ignored.
ZOR_API Integer read_asc_header(TTextFile& file, AscHeader& header);
/// Writes the header; line breaks in the comment become blanks. With `flags` 3 the fourth flag is left out.
ZOR_API void write_asc_header(TTextFile& file, const AscHeader& header, Integer flags = 4);

/// Announced rows, cut to what the rest of the file can hold (a row has at least one byte, and one more is read to
/// notice the end); what `file` stands at is the first row.
ZOR_API Integer asc_rows_to_read(const AscHeader& header, TTextFile& file);

/// Writes a name in double quotes; those inside it become apostrophes and line breaks blanks.
ZOR_API void write_asc_name(TTextFile& file, const TString& name);
/// Reads the next name in double quotes, whatever stands before it. False if the file ends first; the name is then what
/// was read.
ZOR_API Boolean read_asc_name(TTextFile& file, TString& name);
/// Writes any text in double quotes, with \\ and a letter for quotes, line feeds, tabs and backslashes inside it, as
/// the blocks behind the rows have it.
ZOR_API void write_asc_text(TTextFile& file, const TString& text);
/// Reads such a text behind blanks; false if there is none, or the file ends in it.
ZOR_API Boolean read_asc_text(TTextFile& file, TString& text);
/// Reads the line of column names into names[0] to names[count - 1]; names may be null. A line that does not begin with
/// a quote holds bare names, separated by blanks or tabs. Names that are missing are empty.
ZOR_API void read_asc_column_names(TTextFile& file, Integer count, TString* names);
/// Passes over the line of column names.
inline void skip_asc_column_names(TTextFile& file, Integer count) { read_asc_column_names(file, count, nullptr); }

/// Reads what stands before the cells of a row: the attribute and the name, if the header announces them; either
/// pointer may be null. kAscBadAttribute if the attribute is no number, else 0; a name that the file ends in is what
/// was read.
ZOR_API Integer read_asc_row_head(TTextFile& file, const AscHeader& header, Double* attribute, TString* name);

enum class AscCell { kNumber, kMissing, kBad };

/// Reads the next cell. A missing one ("NAN", "###") is 0.0; a bad one, and the end of the file, leave value unchanged.
ZOR_API AscCell read_asc_cell(TTextFile& file, Double& value);

}  // namespace zor::detail

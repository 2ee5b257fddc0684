#pragma once

#include "zor/base/ZOR_zorbase.h"

namespace ZOR_filesys {

using namespace ZOR_zorbase;

/// Reads the four header lines of an ASC file: the comment, the numbers of columns and rows, and which of row
/// attributes, column names, row names and nominal variables the file has. Result 0, or, with the outputs unchanged,
/// -1 if the file cannot be read, -2 if it has fewer than four lines, -3 if a count is no number or negative, -4 if the
/// flags are not three or four words TRUE or FALSE (in any case of letters; a fourth that is missing is FALSE).
ZOR_API Integer ReadHeaderOfASC(const TString& FName, TString& Comment, Integer& NrCols, Integer& NrRows,
                                Boolean& RowAttrib, Boolean& ColNames, Boolean& RowNames, Boolean& NomVars);

/// The next word of a text file, without the blanks and line ends around it; "" at the end of the file. Blanks are the
/// characters 9 to 13 and 32, at the ends of a word also U+00A0 and U+FEFF.
ZOR_API TString ReadNextWordInTextFile(TTextFile& F);

}  // namespace ZOR_filesys

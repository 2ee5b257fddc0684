#include "zor/base/text_reading.h"

#include "zor/base/asc_codec.h"

namespace ZOR_filesys {

Integer ReadHeaderOfASC(const TString& FName, TString& Comment, Integer& NrCols, Integer& NrRows, Boolean& RowAttrib,
                        Boolean& ColNames, Boolean& RowNames, Boolean& NomVars) {
  zor::detail::AscHeader header;
  try {
    TTextFile file(FName);
    file.Reset();
    const Integer code = zor::detail::read_asc_header(file, header);
    if (code != 0) return code;
  } catch (const EInOutError&) {
    return zor::detail::kAscUnreadable;
  }
  Comment = header.Comment;
  NrCols = header.NrCols, NrRows = header.NrRows;
  RowAttrib = header.RowAttrib, ColNames = header.ColNames, RowNames = header.RowNames, NomVars = header.NomVars;
  return 0;
}

TString ReadNextWordInTextFile(TTextFile& F) { return F.ReadWord(); }

}  // namespace ZOR_filesys

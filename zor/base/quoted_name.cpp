#include "zor/base/quoted_name.h"

namespace ZOR_stringl {

ZOR_runtime::Boolean ParseQuotedName(ZOR_runtime::Char C, ZOR_runtime::Char Quote, ZOR_runtime::TString& Name,
                                     TQuotedStrState& State) {
  if (State == qsInside) {
    if (C == Quote) {
      State = qsDone;
      return true;
    }
    Name.append_unit(C);
    return false;
  }
  if (State == qsDone) Name.clear();
  State = C == Quote ? qsInside : qsOutside;
  return false;
}

}  // namespace ZOR_stringl

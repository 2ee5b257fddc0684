#pragma once

#include "zor/runtime/text_file.h"

/// \file  Writing a text file whose faults are not told.

namespace zor::detail {

/// Carries out action on a new file. True as soon as the file exists; what happens then is dropped.
template <class Action>
bool write_file(const ZOR_runtime::TString& name, Action action) {
  bool created = false;
  try {
    ZOR_runtime::TTextFile file(name);
    file.Rewrite();
    created = true;
    action(file);
    file.Close();
  } catch (...) {  // a file that is incomplete is the caller's to find out
  }
  return created;
}

}  // namespace zor::detail

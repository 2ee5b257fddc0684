#pragma once

#include "zor/runtime/text_file.h"

/// \file  Writing a text file whose faults are not reported.

namespace zor::detail {

/// Carries out action on a new file, which replaces the old one if all went well. True as soon as it can be created;
/// what happens then is not reported.
template <class Action>
bool write_file(const ZOR_runtime::TString& name, Action action) {
  bool created = false;
  try {
    ZOR_runtime::TTextFile file(name);
    file.Replace();
    created = true;
    action(file);
    file.Close();
  } catch (...) {  // the old file stands
  }
  return created;
}

}  // namespace zor::detail

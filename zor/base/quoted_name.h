#pragma once

#include "zor/runtime/tstring.h"

/// \file  A scanner of quoted names that is fed one character after the other.

namespace ZOR_stringl {

/// Where the scanner stands.
enum TQuotedStrState : ZOR_runtime::Byte {
  qsOutside = 0,  ///< In front of the opening quote: the state to start from.
  qsInside = 1,
  qsDone = 2  ///< The closing quote has been read.
};

/// Takes the next character of a text; true when it is the closing quote and Name is complete. The caller starts with
/// an empty Name and State qsOutside. All up to the opening quote is skipped, all behind it belongs to the name, line
/// ends included. There is no way to write the quote itself in a name. Fed again after the end, the scanner clears Name
/// and looks for the next one.
ZOR_API ZOR_runtime::Boolean ParseQuotedName(ZOR_runtime::Char C, ZOR_runtime::Char Quote, ZOR_runtime::TString& Name,
                                             TQuotedStrState& State);

}  // namespace ZOR_stringl

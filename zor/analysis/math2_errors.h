#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Failures of ZOR_math2.

namespace ZOR_math2 {

using namespace ZOR_zorbase;

ZOR_DECLARE_EXCEPTION(EZORMath2Error, EZORError);

}  // namespace ZOR_math2

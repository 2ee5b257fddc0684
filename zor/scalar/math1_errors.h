#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Failures of ZOR_math1.

namespace ZOR_math1 {

using namespace ZOR_zorbase;

ZOR_DECLARE_EXCEPTION(EZORMath1Error, EZORError);

}  // namespace ZOR_math1

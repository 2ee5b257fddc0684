#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  Failures of ZOR_statis.

namespace ZOR_statis {

using namespace ZOR_zorbase;

ZOR_DECLARE_EXCEPTION(EZORStatisError, EZORError);

}  // namespace ZOR_statis

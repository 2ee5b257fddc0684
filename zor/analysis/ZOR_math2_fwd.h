#pragma once

/// \file  Forward declarations of the classes of ZOR_math2.

namespace ZOR_math2 {

class TCurveFit;

}  // namespace ZOR_math2

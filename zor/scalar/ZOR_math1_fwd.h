#pragma once

/// \file  Forward declaration of the class of ZOR_math1.

namespace ZOR_math1 {

class TKahanSum;

}  // namespace ZOR_math1

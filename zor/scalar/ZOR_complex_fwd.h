#pragma once

/// \file  Forward declarations of the records of ZOR_complex.

namespace ZOR_complex {

struct TComplex;
struct TComplexPolar;

}  // namespace ZOR_complex

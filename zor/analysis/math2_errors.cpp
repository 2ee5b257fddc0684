#include "zor/analysis/math2_errors.h"

namespace ZOR_math2 {

EZORMath2Error::~EZORMath2Error() = default;

}  // namespace ZOR_math2

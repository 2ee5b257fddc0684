#include "zor/scalar/math1_errors.h"

namespace ZOR_math1 {

EZORMath1Error::~EZORMath1Error() = default;

}  // namespace ZOR_math1

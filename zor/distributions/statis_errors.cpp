#include "zor/distributions/statis_errors.h"

namespace ZOR_statis {

EZORStatisError::~EZORStatisError() = default;

}  // namespace ZOR_statis

#include "zor/runtime/exception.h"

namespace ZOR_runtime {

Exception::~Exception() = default;
EMathError::~EMathError() = default;
EConvertError::~EConvertError() = default;
EInOutError::~EInOutError() = default;
EOutOfMemory::~EOutOfMemory() = default;

}  // namespace ZOR_runtime

#pragma once

/// \file  Forward declarations of the classes of ZOR_statis.

namespace ZOR_statis {

class TRandGen;

}  // namespace ZOR_statis

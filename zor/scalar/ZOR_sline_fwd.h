#pragma once

/// \file  Forward declaration of the class of ZOR_sline.

namespace ZOR_sline {

class TSLine;

}  // namespace ZOR_sline

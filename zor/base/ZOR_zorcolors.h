#pragma once

#include "zor/base/colors.h"

/// \file  Conversions of colours, and tables of colours.
///
///     using namespace ZOR_zorcolors;
///     TColorArray heat;
///     heat.SetNrOfColors(2);
///     heat.SetColorElem(2, RGBtoColor(255, 0, 0));
///     RGBtoGray(255, 0, 0);    // 76

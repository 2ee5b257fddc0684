#pragma once

#include "zor/imaging/bitmap.h"
#include "zor/imaging/clipboard.h"
#include "zor/imaging/jpeg.h"
#include "zor/imaging/png.h"

/// \file  Pictures in memory and in BMP, PNG and JPEG files, and the clipboard. No screen is needed.
///
///     using namespace ZOR_imaging;
///     TBitmap bitmap;
///     bitmap.SetSize(2, 1);
///     bitmap.Canvas().SetPixels(1, 0, 0x00FF00);   // the right one green
///     TPngImage png;
///     png.Assign(&bitmap);
///     png.SaveToFile("two.png");

#pragma once

#include "zor/arrays/array_concepts.h"

/// \file  An array of colours as a picture file.

namespace ZOR_openarrays {

inline constexpr Integer kUnknownExtension = -1;  ///< The file name ends with none of .bmp, .png, .jpg.
inline constexpr Integer kBadMagnification = -2;  ///< Magnif is outside 1 to 10.
inline constexpr Integer kEmptyImage = -3;        ///< The array is empty.

/// Saves Img as a picture: cell [x][y] holds a colour (red in the low byte, then green, blue; the high byte is ignored)
/// and becomes Magnif by Magnif pixels, x counted to the right and y downward. The extension of FName, in letters of
/// either case, decides the format: .bmp, .png, .jpg. An empty FName leaves the picture in the clipboard.
/// Returns 0; kBadMagnification, kUnknownExtension, kEmptyImage, the first of them, and then nothing is written. Raises
/// EInOutError if the file cannot be written, and EInvalidGraphic if the format cannot hold the picture or the library
/// was built without it; no file is left in part.
ZOR_API Integer SaveArrayAsImg(const TString& FName, const TInt2DArray& Img, Integer Magnif);

}  // namespace ZOR_openarrays

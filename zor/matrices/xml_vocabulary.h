#pragma once

#include "zor/base/ZOR_zorbase.h"

/// \file  The XML vocabulary that all matrices share.
///
///     <?xml version="1.0" encoding="UTF-8"?>
///     <matrix id="profile">
///     <numcols>1</numcols>
///     <numrows>2</numrows>
///     <cell ix="1" iy="1">0.5</cell>
///     <cell ix="1" iy="2">2.5E3</cell>
///     </matrix>
/// The sizes must stand before the first cell; a cell that is missing is 0.

namespace ZOR_matrix {

using namespace ZOR_zorbase;

/// Tags of a matrix in a document, in the order of their names in kMatXmlTags.
enum TMatXmlTag : Byte {
  xmlMatNumCols = 0,
  xmlMatNumRows = 1,
  xmlMatNumLayers = 2,
  xmlMatNumTimeSlots = 3,
  xmlMatCell = 4,
  xmlMatBegin = 5,
  xmlMatEnd = 6,
  xmlInvalid = 7
};

/// Names of the tags.
inline constexpr const char* kMatXmlTags[] = {"numcols", "numrows", "numplanes", "numtimeslots",
                                              "cell",    "matrix",  "/matrix",   "invalidtag"};

/// Results of ProcessXmlTag.
inline constexpr Integer kXmlGoOn = 0;
inline constexpr Integer kXmlComplete = 1;
inline constexpr Integer kXmlBadTag = -1;

}  // namespace ZOR_matrix

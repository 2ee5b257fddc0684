#pragma once

/// \file  The whole library: the chief headers of all units. An application that uses one or two units compiles faster
/// with theirs alone.

#include "zor/analysis/ZOR_math2.h"
#include "zor/arrays/ZOR_openarrays.h"
#include "zor/base/ZOR_dstruct.h"
#include "zor/base/ZOR_filesys.h"
#include "zor/base/ZOR_streams.h"
#include "zor/base/ZOR_stringl.h"
#include "zor/base/ZOR_univconst.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/base/ZOR_zorcolors.h"
#include "zor/datatable/ZOR_datatable.h"
#include "zor/imaging/ZOR_imaging.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/scalar/ZOR_complex.h"
#include "zor/scalar/ZOR_math1.h"
#include "zor/scalar/ZOR_sline.h"
#include "zor/statistics/ZOR_statis.h"
#include "zor/transforms/ZOR_fourier.h"
#include "zor/transforms/ZOR_wavelet.h"
#include "zor/vectors/ZOR_vector.h"
#include "zor/version.h"

#pragma once

#include "zor/arrays/array_concepts.h"
#include "zor/arrays/boolean_arrays.h"
#include "zor/arrays/clone.h"
#include "zor/arrays/color_map.h"
#include "zor/arrays/columns_rows.h"
#include "zor/arrays/compare.h"
#include "zor/arrays/copy.h"
#include "zor/arrays/counting.h"
#include "zor/arrays/eigen.h"
#include "zor/arrays/elementwise.h"
#include "zor/arrays/extremes.h"
#include "zor/arrays/fill.h"
#include "zor/arrays/flood_fill.h"
#include "zor/arrays/frequency.h"
#include "zor/arrays/local_filters.h"
#include "zor/arrays/lu.h"
#include "zor/arrays/masks.h"
#include "zor/arrays/matrix_inverse.h"
#include "zor/arrays/matrix_product.h"
#include "zor/arrays/means.h"
#include "zor/arrays/object_distance.h"
#include "zor/arrays/order.h"
#include "zor/arrays/percentile.h"
#include "zor/arrays/permute.h"
#include "zor/arrays/projections.h"
#include "zor/arrays/random_fill.h"
#include "zor/arrays/resample.h"
#include "zor/arrays/rescale.h"
#include "zor/arrays/result_codes.h"
#include "zor/arrays/save_image.h"
#include "zor/arrays/search.h"
#include "zor/arrays/shape.h"
#include "zor/arrays/shuffle.h"
#include "zor/arrays/standardize.h"
#include "zor/arrays/sums.h"
#include "zor/arrays/vector_products.h"
#include "zor/base/ZOR_zorbase.h"

/// \file  Operations on dynamic arrays of one to four dimensions.
/// Index order is a[col][row][layer][slot], counted from 0; storage order walks the last index fastest. An array is
/// empty if it is null, if a length is 0, or if its inner arrays differ in length. Routines return 0 or a negative code
/// (result_codes.h); of several faults the test made last wins, except that an empty array returns at once. Unless told
/// otherwise nothing is touched on a negative code. A result is set to its size by the routine; one that already has it
/// and shares no cells is written in place. A result may be one of the inputs. The families exist for the array types
/// that their constraint names; other types do not compile.
///
///     using namespace ZOR_openarrays;
///     TDouble2DArray a = {{1, 2}, {3, 4}}, sum;
///     AddArrays(a, {{10, 20}, {30, 40}}, sum);      // {{11, 22}, {33, 44}}
///     MultiplyArrayByScalar(sum, 0.5);              // {{5.5, 11}, {16.5, 22}}
///     AddArrays(a, nullptr, sum);                   // kEmptyArray, sum as it was

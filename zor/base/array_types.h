#pragma once

#include "zor/base/points.h"
#include "zor/runtime/dyn_array.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  The dynamic array types.
/// The outer index is the column, then row, layer, time slot: a[col][row][layer][slot]. Indices count from 0.

namespace ZOR_zorbase {

using ZOR_runtime::Boolean;
using ZOR_runtime::Double;
using ZOR_runtime::Integer;
using ZOR_runtime::Single;
using ZOR_runtime::TDynArray;
using ZOR_runtime::TString;

using TDoubleArray = TDynArray<Double>;
using TDouble2DArray = TDynArray<TDoubleArray>;
using TDouble3DArray = TDynArray<TDouble2DArray>;
using TDouble4DArray = TDynArray<TDouble3DArray>;
using TIntArray = TDynArray<Integer>;
using TInt2DArray = TDynArray<TIntArray>;
using TInt3DArray = TDynArray<TInt2DArray>;
using TInt4DArray = TDynArray<TInt3DArray>;
using TBoolArray = TDynArray<Boolean>;
using TBool2DArray = TDynArray<TBoolArray>;
using TSingleArray = TDynArray<Single>;
using TStrArray = TDynArray<TString>;
using TStr2DArray = TDynArray<TStrArray>;
using TOpenStringArray = TDynArray<TString>;

using TPDblArray = TDynArray<TPointDouble>;  ///< A polygon.
using TPIntArray = TDynArray<TPoint>;

}  // namespace ZOR_zorbase

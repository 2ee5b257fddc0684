#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/matrices/ZOR_matrix_fwd.h"
#include "zor/matrices/matrix.h"
#include "zor/vectors/ZOR_vector.h"

/// \file  Matrices with change events: TMatrix of doubles.
/// A cell is named by its column, then its row, both counted from 1; there is always at least one. A column is
/// contiguous in memory, a row is not. A bad index never raises: reading gives 0, writing is ignored. A range is a pair
/// of inclusive bounds for the columns and one for the rows: (0, 0) means all of them, bounds outside are moved to the
/// nearest column or row, reversed bounds are exchanged (MakeValidColRange, MakeValidRowRange). CopyFrom is an
/// exception: zeros mean the one cell (1, 1) there. Mind the order of the bounds: fills, searches and counts take
/// LowCol, HighCol, LowRow, HighRow; copies and statistics take LowCol, LowRow, HighCol, HighRow. Plain arrays,
/// a[col][row], count from 0; an empty or ragged one counts as empty. Events fire on the caller's thread when the data
/// has its new state, OnChange before OnResize. One matrix may be used by one thread at a time.
///
///     using namespace ZOR_matrix;
///     TMatrix m;
///     m.Resize(2, 3);                      // 2 columns, 3 rows
///     m.FillSerial(1.0, 1.0);              // columns (1, 2, 3) and (4, 5, 6)
///     m.Elem(2, 1) = 9.0;                  // column 2, row 1
///     std::cout << m.GetVal(2, 1) << '\n';

#pragma once

#include "zor/datatable/ZOR_datatable_fwd.h"
#include "zor/datatable/data_table.h"
#include "zor/datatable/table_print.h"

/// \file  The data table: a matrix of numbers whose columns have a name, an attribute, a measurement scale and a list
/// of nominal identifiers, whose rows have a name and an attribute, and whose cells have a state. A cell is named by
/// its column, then its row, both counted from 1. A bad index never raises: reading gives 0, 0.0, false or "", writing
/// is ignored without an event. A range is LowCol, LowRow, HighCol, HighRow: (0, 0) in a dimension means all of it,
/// bounds outside are moved to the nearest line, reversed ones exchanged. Names hold 50 bytes of UTF-8, identifiers 10;
/// longer text is cut at a character.
///
/// Columns of scale stNominal or stOrdinal are categorial: a cell holds the ordinal, 0 to 150, of one of the column's
/// identifiers. Columns of scale stInterval (as in a new column) or stRatio are metric. A state of 0 is a plain number;
/// cells with bit 1 or 2 (empty) are not numeric and keep whatever number stands in them.
///
/// Events fire on the caller's thread when the data has its new state. Comments name them by a letter: C OnChange, K
/// OnChangeCellState, S OnChangeSetup, N OnChangeNames, A OnChangeAttrib, R OnResize. A handler may do anything but
/// delete the table. A table is used by one thread at a time, and neither copied nor moved.
///
///     using namespace ZOR_datatable;
///     TDataTable table({{"length", {39.1, 46.5, 49.3}}, {"species", {"Adelie", "Gentoo", "Adelie"}}});
///     table.SetIsEmpty(1, 2, true);                                // the length in row 2 is missing
///     std::cout << table.ElemNominal(2, 3) << '\n';                // Adelie
///     std::cout << table.CountMarkedCellsInColumn(1, kCellEmpty) << '\n';

#pragma once

#include "zor/datatable/table_types.h"

/// \file  What a table holds, as plain data: what readers fill and what is swapped in as a whole.

namespace ZOR_datatable {

/// All that a column carries beside its cells.
struct TColumnRecord {
  TVTypeSpec type;
  TDTNameStr name;
  Integer attribute = 0;
};

/// All that a row carries beside its cells.
struct TRowRecord {
  TDTNameStr name;
  Integer attribute = 0;
};

/// Annotations of a table. The lengths of `columns` and `rows` are its size; states[c][r] counts from 0.
struct TTableFrame {
  TString comment;
  TDynArray<TColumnRecord> columns;
  TDynArray<TRowRecord> rows;
  TDynArray<TDynArray<Byte>> states;

  Integer ncols() const noexcept { return Length(columns); }
  Integer nrows() const noexcept { return Length(rows); }
};

/// A whole table: cells[c][r] counts from 0; null while there is no cell.
struct TTableImage : TTableFrame {
  TTableImage() = default;
  /// A table of this size in which everything has its default. Throws EOutOfMemory.
  TTableImage(Integer columns, Integer rows);
  TDouble2DArray cells;
};

}  // namespace ZOR_datatable

namespace zor::detail {

/// "C-" or "R-" and the number.
ZOR_datatable::TDTNameStr default_name(char kind, ZOR_runtime::Integer number) noexcept;
/// Sets the length of a list of records, as private cells; new ones have the default name of their place.
void set_length(ZOR_runtime::TDynArray<ZOR_datatable::TColumnRecord>& columns, ZOR_runtime::Integer n);
void set_length(ZOR_runtime::TDynArray<ZOR_datatable::TRowRecord>& rows, ZOR_runtime::Integer n);
/// Equality without regard to the case of letters.
bool same_text(std::string_view a, std::string_view b);
/// The first slot with this identifier; -1 if there is none or the identifier is empty.
ZOR_runtime::Integer find_identifier(const ZOR_datatable::TVTypeSpec& type, const ZOR_datatable::TNominalIDStr& id,
                                     bool ignore_case);
/// The lowest free slot; -1 if all are taken.
ZOR_runtime::Integer free_slot(const ZOR_datatable::TVTypeSpec& type) noexcept;
/// The slot of an identifier, case ignored, which is put into the lowest free slot if there is none; -1 if that fails.
ZOR_runtime::Integer find_or_add_identifier(ZOR_datatable::TVTypeSpec& type, const ZOR_datatable::TNominalIDStr& id);
/// Copies scale and identifiers; those of a column that is not categorial arrive as empty.
void copy_visible_type(const ZOR_datatable::TVTypeSpec& from, ZOR_datatable::TVTypeSpec& to) noexcept;

}  // namespace zor::detail

#pragma once

#include "zor/datatable/table_statistics.h"

/// \file  The data table. What holds for all of it stands in ZOR_datatable.h.

namespace ZOR_datatable {

/// The data table; what it can do is declared in its bases.
class ZOR_API TDataTable : public TTableStatistics {
 public:
  /// One column "C-1" and one row "R-1", cell 0.0. Throws EZORDataTableError "failed to initialize (out of memory)".
  explicit TDataTable(TComponent* AOwner = nullptr);
  /// A table of these columns; the longest sets the number of rows, cells that a shorter one lacks are empty.
  explicit TDataTable(std::initializer_list<TNamedColumn> list, TComponent* AOwner = nullptr);
  const char* ClassName() const noexcept override;
};

}  // namespace ZOR_datatable

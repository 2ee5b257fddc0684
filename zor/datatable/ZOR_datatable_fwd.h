#pragma once

/// \file  Forward declaration of the data table.

namespace ZOR_datatable {

class TDataTable;

}  // namespace ZOR_datatable

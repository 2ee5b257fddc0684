#pragma once

#include <array>
#include <initializer_list>

#include "zor/base/ZOR_zorbase.h"

/// \file  Scopes in which the events of a table are silent, or wait.

namespace ZOR_datatable {

using namespace ZOR_zorbase;

class TTableModel;

/// The events without arguments, in the order in which they fire together.
enum class TableNotice : Byte { kData, kCellStates, kSetup, kNames, kAttrib };
inline constexpr std::size_t kTableNotices = 5;

/// Which events are silent, how many scopes let events wait, and which ones do.
struct TableNotices {
  std::array<Integer, kTableNotices> muted{};
  Integer held = 0;
  std::array<bool, kTableNotices> waiting{};
  bool resized = false;
  Integer old_columns = 0, old_rows = 0;
};

/// Until it ends, these events of the table are not fired. Scopes nest.
class TableMute {
 public:
  TableMute(TTableModel& table, std::initializer_list<TableNotice> notices);
  ~TableMute();
  TableMute(const TableMute&) = delete;
  TableMute& operator=(const TableMute&) = delete;

 private:
  TableNotices& notices_;
  std::array<bool, kTableNotices> mine_{};
};

/// Until it ends, events of the table wait; then each fires once, OnResize with the size before first. Scopes nest: the
/// outermost one fires. An exception of a handler leaves the scope, unless another one is already under way. The table
/// must outlive the scope.
class ZOR_API TTableEditScope {
 public:
  explicit TTableEditScope(TTableModel& table);
  ~TTableEditScope() noexcept(false);
  TTableEditScope(const TTableEditScope&) = delete;
  TTableEditScope& operator=(const TTableEditScope&) = delete;

 private:
  void fire();
  TTableModel& table_;
  int under_way_;
};

}  // namespace ZOR_datatable

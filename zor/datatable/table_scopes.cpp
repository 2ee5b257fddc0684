#include "zor/datatable/table_scopes.h"

#include <exception>

#include "zor/datatable/table_model.h"

namespace ZOR_datatable {

TableMute::TableMute(TTableModel& table, std::initializer_list<TableNotice> notices) : notices_(table.FNotices) {
  for (const TableNotice notice : notices) {
    mine_[static_cast<std::size_t>(notice)] = true;
    ++notices_.muted[static_cast<std::size_t>(notice)];
  }
}

TableMute::~TableMute() {
  for (std::size_t i = 0; i < kTableNotices; ++i) notices_.muted[i] -= mine_[i];
}

TTableEditScope::TTableEditScope(TTableModel& table) : table_(table), under_way_(std::uncaught_exceptions()) {
  ++table_.FNotices.held;
}

TTableEditScope::~TTableEditScope() noexcept(false) {
  TableNotices& notices = table_.FNotices;
  if (--notices.held > 0) return;
  if (std::uncaught_exceptions() == under_way_) {
    fire();
    return;
  }
  try {
    fire();
  } catch (...) {  // a second exception during unwinding would end the program
  }
}

void TTableEditScope::fire() {
  TableNotices& notices = table_.FNotices;
  const TableNotices waiting = notices;
  notices.waiting = {};
  notices.resized = false;
  if (waiting.resized) table_.notify_resized(waiting.old_columns, waiting.old_rows);
  const auto due = [&](TableNotice notice) { return waiting.waiting[static_cast<std::size_t>(notice)]; };
  if (due(TableNotice::kData)) table_.ChangedData();
  if (due(TableNotice::kCellStates)) table_.ChangedCellStates();
  if (due(TableNotice::kSetup)) table_.ChangedSetup();
  if (due(TableNotice::kNames)) table_.ChangedNames();
  if (due(TableNotice::kAttrib)) table_.ChangedAttrib();
}

void TTableModel::notify(TableNotice notice, const TNotifyEvent& event) {
  const auto i = static_cast<std::size_t>(notice);
  if (FNotices.muted[i] > 0) return;
  if (FNotices.held > 0) {
    FNotices.waiting[i] = true;
  } else {
    event(this);
  }
}

void TTableModel::notify_resized(Integer old_columns, Integer old_rows) {
  if (FNotices.held == 0) return OnResize(this, old_columns, old_rows, NrOfColumns(), NrOfRows());
  if (!FNotices.resized) FNotices.old_columns = old_columns, FNotices.old_rows = old_rows;
  FNotices.resized = true;
}

void TTableModel::notify_contents() {
  ChangedData();
  ChangedCellStates();
  ChangedSetup();
  ChangedNames();
  ChangedAttrib();
}

TTableEditScope TTableModel::Edit() { return TTableEditScope(*this); }

}  // namespace ZOR_datatable

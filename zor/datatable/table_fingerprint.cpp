#include <array>

#include "zor/datatable/data_table.h"
#include "zor/kernels/crc_lanes.h"

namespace ZOR_datatable {

namespace {

/// Eight checksums; a byte goes to the one that its position chooses.
class Lanes {
 public:
  Lanes() { lanes_.fill(0xFFFFFFFFu); }
  void feed(std::size_t position, Byte byte) noexcept {
    std::uint32_t& lane = lanes_[position % 8];
    lane = zor::kernels::crc32_step(lane, byte);
  }
  void feed(std::string_view text) noexcept {
    for (std::size_t i = 0; i < text.size(); ++i) feed(i + 1, static_cast<Byte>(text[i]));
  }
  TString text() const {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string digits;
    for (const std::uint32_t lane : lanes_) {
      for (int shift = 28; shift >= 0; shift -= 4) digits += kDigits[~lane >> shift & 15];
    }
    return digits;
  }

 private:
  std::array<std::uint32_t, 8> lanes_;
};

template <class Record>
void feed_names_and_attributes(Lanes& lanes, const TDynArray<Record>& records) {
  for (const Record& record : records) lanes.feed(record.name.view());
  for (std::size_t i = 0; i < records.size(); ++i) lanes.feed(i + 1, static_cast<Byte>(records[i].attribute));
}

}  // namespace

TString TTableModel::CRCofCellStates() const {
  Lanes lanes;
  for (const auto& column : FFrame.states) {
    for (std::size_t r = 0; r < column.size(); ++r) lanes.feed(r + 1, column[r]);
  }
  return lanes.text();
}

TString TTableModel::CRCofNamesAndAttributes() const {
  Lanes lanes;
  const auto comment = FFrame.comment.units();
  for (std::size_t i = 0; i < comment.size(); ++i) lanes.feed(i + 1, static_cast<Byte>(comment[i]));
  feed_names_and_attributes(lanes, FFrame.columns);
  feed_names_and_attributes(lanes, FFrame.rows);
  for (std::size_t c = 0; c < FFrame.columns.size(); ++c) lanes.feed(c + 1, FFrame.columns[c].type.MScaleType);
  for (const TColumnRecord& column : FFrame.columns) {
    for (const TNominalIDStr& id : column.type.IDs) lanes.feed(id.view());
  }
  return lanes.text();
}

}  // namespace ZOR_datatable

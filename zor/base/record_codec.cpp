#include "zor/base/record_codec.h"

#include <algorithm>
#include <array>
#include <limits>

#include "zor/base/reader_limits.h"
#include "zor/base/stream_numbers.h"
#include "zor/runtime/file_replacement.h"
#include "zor/runtime/numbers.h"

namespace zor::detail {
namespace {

using ZOR_runtime::Byte;
using ZOR_runtime::TFileStream;
using ZOR_runtime::TMemoryStream;
using ZOR_runtime::TStream;

constexpr Int64 kTimeSlotsAt = 12;
constexpr std::size_t kLongestID = 255;

Integer read_integer(TStream& stream) {
  bool failed = false;
  return ZOR_streams::ReadLongintFromStream(stream, failed);
}

RecordHead read_head(TStream& stream) {
  RecordHead head;
  for (Integer* size : {&head.NrColumns, &head.NrRows, &head.NrLayers, &head.NrTimeSlots}) *size = read_integer(stream);
  std::array<Byte, 1 + kLongestID> text{};
  stream.Read(text.data(), text.size());
  head.DataID = std::u16string(text.begin() + 1, text.begin() + 1 + text[0]);
  head.Format = read_integer(stream);
  return head;
}

void write_head(TStream& stream, const RecordHead& head) {
  TMemoryStream record;
  record.SetSize(kRecordBytes);
  for (const Integer size : {head.NrColumns, head.NrRows, head.NrLayers, head.NrTimeSlots})
    ZOR_streams::WriteLongintToStream(record, size);
  std::array<Byte, 1 + kLongestID> text{};
  const auto units = head.DataID.units().substr(0, kLongestID);
  text[0] = static_cast<Byte>(units.size());
  std::transform(units.begin(), units.end(), text.begin() + 1,
                 [](char16_t u) { return static_cast<Byte>(u <= 0xFF ? u : u'?'); });
  record.WriteBuffer(text.data(), text.size());
  ZOR_streams::WriteLongintToStream(record, head.Format);
  stream.SetPosition(0);
  stream.WriteBuffer(record.Bytes().data(), kRecordBytes);
}

// Byte of the file at which cell e begins; the largest position if there is none so high.
Int64 position_of(Int64 e, Int64 cell_bytes) {
  const Int64 most = (std::numeric_limits<Int64>::max() - kRecordBytes) / cell_bytes;
  return kRecordBytes + std::clamp<Int64>(e, 0, most) * cell_bytes;
}

}  // namespace

Int64 RecordHead::cells() const noexcept {
  if (NrColumns < 1 || NrRows < 1 || NrLayers < 0 || NrTimeSlots < 0) return -1;
  const Int64 plane = Int64{NrColumns} * NrRows;
  return checked_product(checked_product(plane, std::max(NrLayers, 1)), std::max(NrTimeSlots, 1));
}

RecordFileReader::RecordFileReader(const TString& FName)
    : name_(FName), file_(std::make_unique<TFileStream>(FName, ZOR_runtime::fmOpenRead)), stream_(*file_) {
  start();
}

RecordFileReader::RecordFileReader(TStream& stream) : name_("(stream)"), stream_(stream) { start(); }

void RecordFileReader::start() {
  byte_size_ = stream_.Size();
  stream_.SetPosition(0);
  if (has_head()) head_ = read_head(stream_);
  seek(0);
}

Int64 RecordFileReader::cells_in_file() const noexcept {
  return std::max<Int64>(0, byte_size_ - kRecordBytes) / head_.cell_bytes();
}

void RecordFileReader::seek(Int64 e) { stream_.SetPosition(position_of(e, head_.cell_bytes())); }

template <class T>
void RecordFileReader::read_stored(std::span<T> cells) {
  if (read_numbers(stream_, cells) < cells.size()) fail_io("cannot read", name_, "unexpected end");
}

void RecordFileReader::read(std::span<Double> cells) {
  if (head_.Format != kIntegerCells) return read_stored(cells);
  std::array<Integer, 1024> block;
  while (!cells.empty()) {
    const auto part = std::span(block).first(std::min(cells.size(), block.size()));
    read_stored(part);
    std::copy(part.begin(), part.end(), cells.begin());
    cells = cells.subspan(part.size());
  }
}

void RecordFileReader::read(std::span<Integer> cells) {
  if (head_.Format == kIntegerCells) return read_stored(cells);
  std::array<Double, 512> block;
  while (!cells.empty()) {
    const auto part = std::span(block).first(std::min(cells.size(), block.size()));
    read_stored(part);
    std::transform(part.begin(), part.end(), cells.begin(), round_to_integer);
    cells = cells.subspan(part.size());
  }
}

RecordFileWriter::RecordFileWriter(const TString& FName, const RecordHead& head)
    : stream_(std::make_unique<FileReplacement>(FName)), head_(head), append_(false) {
  write_head(*stream_, head);
}

RecordFileWriter::RecordFileWriter(const TString& FName, const RecordHead& head, AppendTag)
    : stream_(std::make_unique<TFileStream>(FName, ZOR_runtime::fmOpenReadWrite)), head_(head), append_(true) {
  stream_->SetPosition(position_of(head.cells(), head.cell_bytes()));
}

void RecordFileWriter::write(std::span<const Double> cells) { write_numbers(*stream_, cells); }
void RecordFileWriter::write(std::span<const Integer> cells) { write_numbers(*stream_, cells); }

void RecordFileWriter::finish() {
  const Int64 end = stream_->Position();
  const Int64 padding = (kRecordBytes - end % kRecordBytes) % kRecordBytes;
  constexpr std::array<std::byte, kRecordBytes> kZeros{};
  stream_->WriteBuffer(kZeros.data(), padding);
  if (append_) {
    stream_->Flush();
    const Int64 slot = head_.cells() / std::max(head_.NrTimeSlots, 1);
    const Int64 slots = (end - kRecordBytes) / head_.cell_bytes() / slot;
    stream_->SetPosition(kTimeSlotsAt);
    ZOR_streams::WriteLongintToStream(*stream_, to_integer(to_size(slots)));
  }
  stream_->Close();
}

}  // namespace zor::detail

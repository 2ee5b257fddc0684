#include <algorithm>
#include <string_view>

#include "zor/base/reader_limits.h"
#include "zor/matrices/cell_text_internal.h"
#include "zor/matrices/store_block_internal.h"
#include "zor/runtime/number_writer.h"
#include "zor/vectors/run_writer_internal.h"
#include "zor/vectors/write_file_internal.h"

namespace ZOR_matrix {
namespace {

constexpr std::string_view kMark = "//dig";

/// The next word of a line, which is cut off; empty at its end.
std::string_view take_word(std::string_view& line) {
  const auto blank = [](char c) { return zor::detail::is_blank_byte(static_cast<unsigned char>(c)); };
  line.remove_prefix(static_cast<std::size_t>(std::ranges::find_if_not(line, blank) - line.begin()));
  const auto end = static_cast<std::size_t>(std::ranges::find_if(line, blank) - line.begin());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end);
  return word;
}

/// What stands in front of the mark of a line; false if it has none.
bool cut_at_mark(std::string_view& line) {
  const std::size_t at = line.find(kMark);
  if (at == line.npos) return false;
  line = line.substr(0, at);
  return true;
}

}  // namespace

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::StoreOnFile(Integer LoC, Integer LoR, Integer HiC, Integer HiR,
                                         const TString& FileName) const {
  const Bounds cols = columns(LoC, HiC), down = rows(LoR, HiR);
  const zor::detail::CellFormat format(FPrecis[0], FPrecis[1]);
  return zor::detail::write_file(FileName, [&](TTextFile& file) {
    const char* between = "";
    for (const Integer bound : {cols.lo, down.lo, cols.hi, down.hi}) {
      file.Write(between);
      file.WriteInteger(bound);
      between = " ";
    }
    file.WriteLn();
    for (Integer r = down.lo; r <= down.hi; ++r) {
      for (Integer c = cols.lo; c <= cols.hi; ++c) {
        if (c > cols.lo) file.Write(" ");
        file.took(format.write(file.room(zor::detail::kNumberBuffer), Mat[c - 1][r - 1]));
      }
      file.WriteLn();
    }
  });
}

template <class Self, Cell T>
template <class NextWord>
void MatrixCore<Self, T>::read_row(Int64 first_col, Int64 last_col, Int64 row, NextWord next_word) {
  zor::detail::RunWriter<T> out([&](std::span<const T> cells, Int64 col) {
    write_block(
        static_cast<Int64>(cells.size()), 1, [&](Int64 i) { return cells.data() + i; }, col, row);
  });
  for (Int64 c = first_col; c <= last_col; ++c) {
    const std::string_view word = next_word();
    if (word.empty()) break;
    Double x = 0.0;
    if (zor::detail::read_cell(word, x)) out.put(c, zor::detail::to_cell<T>(x));
  }
  out.flush();
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize) {
  Boolean result = false;
  try {
    TTextFile file(FileName);
    file.Reset();
    Bounds cols{}, down{};
    for (Integer* bound : {&cols.lo, &down.lo, &cols.hi, &down.hi}) {
      if (!file.ReadInteger(*bound)) return false;
    }
    if (AdjustMatrixSize) {
      const Int64 bytes = zor::detail::column_array_bytes<T>(std::max(cols.hi, 0), std::max(down.hi, 0));
      if (!zor::detail::may_allocate(bytes, file.Remaining())) return false;
      Resize(cols.hi, down.hi);
    }
    if (cols.hi <= dense_columns() && down.hi <= dense_rows()) {
      result = true;
      for (Int64 r = down.lo; r <= down.hi && cols.lo <= cols.hi && !file.Eof(); ++r)
        read_row(cols.lo, cols.hi, r, [&] { return file.read_word(); });
    }
    file.Close();
    Changed();
  } catch (...) {  // the result says how far it got
  }
  return result;
}

Boolean TMatrix::LoadFromFile(const TString& FileName, Boolean AdjustMatrixSize, Boolean AutoDetect) {
  if (!AutoDetect) return LoadFromFile(FileName, AdjustMatrixSize);
  Boolean result = false;
  try {
    TTextFile file(FileName);
    file.Reset();
    const Int64 bytes = file.Remaining();
    Int64 lines = 0, columns = 0;
    for (std::string_view line; file.read_line(line);) {
      if (!cut_at_mark(line) || lines++ > 0) continue;
      while (!take_word(line).empty()) ++columns;
    }
    if (lines == 0) {
      file.Close();
      return LoadFromFile(FileName, AdjustMatrixSize);
    }
    if (AdjustMatrixSize) {
      if (!zor::detail::may_allocate(zor::detail::column_array_bytes<Double>(columns, lines), bytes)) return false;
      Resize(zor::detail::to_integer(zor::detail::to_size(columns)),
             zor::detail::to_integer(zor::detail::to_size(lines)));
    }
    file.Reset();
    result = true;
    Int64 row = 1;
    for (std::string_view line; row <= FNRow && file.read_line(line);) {
      if (!cut_at_mark(line)) continue;
      read_row(1, FNCol, row, [&] { return take_word(line); });
      ++row;
    }
    file.Close();
    Changed();
  } catch (...) {  // the result says how far it got
  }
  return result;
}

#define ZOR_INSTANCES(M, T)                                                                                 \
  template Boolean MatrixCore<M, T>::StoreOnFile(Integer, Integer, Integer, Integer, const TString&) const; \
  template Boolean MatrixCore<M, T>::LoadFromFile(const TString&, Boolean);

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix

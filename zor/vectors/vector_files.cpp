#include <algorithm>
#include <cmath>
#include <string_view>

#include "zor/base/reader_limits.h"
#include "zor/runtime/number_reader.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/text_file.h"
#include "zor/vectors/run_writer_internal.h"
#include "zor/vectors/vector.h"
#include "zor/vectors/write_file_internal.h"

namespace ZOR_vector {

using zor::detail::write_file;
using ZOR_runtime::TTextFile;

Boolean TVector::StoreOnFile(Integer FirstElem, Integer LastElem, Integer Precision, const TString& FileName) const {
  const Integer decimals = Precision < -2 ? 2 : std::min(Precision, 20);
  const Integer width = decimals == -2 ? 26 : decimals == -1 ? 13 : 1;
  MakeValidElemRange(FirstElem, LastElem);
  return write_file(FileName, [&](TTextFile& file) {
    file.WriteInteger(FirstElem);
    file.Write(" ");
    file.WriteInteger(LastElem);
    file.WriteLn();
    for (const Double x : range(FirstElem, LastElem)) {
      file.WriteFloat(x, width, decimals);
      file.WriteLn();
    }
  });
}

Boolean TIntVector::StoreOnFile(Integer FirstElem, Integer LastElem, const TString& FileName) const {
  if (LastElem < FirstElem) std::swap(FirstElem, LastElem);
  FirstElem = std::max(FirstElem, 1);
  LastElem = std::min(LastElem, NrOfElem());
  return write_file(FileName, [&](TTextFile& file) {
    file.WriteInteger(FirstElem);
    file.Write(" ");
    file.WriteInteger(LastElem);
    file.WriteLn();
    for (Integer i = FirstElem; i <= LastElem; ++i) {
      file.WriteInteger(GetVal(i));
      file.WriteLn();
    }
  });
}

template <class Self, Cell T>
Boolean VectorCore<Self, T>::LoadFromFile(const TString& FileName, Boolean AdjustVectorSize) {
  Boolean result = false;
  try {
    TTextFile file(FileName);
    file.Reset();
    Integer lo = 0, hi = 0;
    if (!file.ReadInteger(lo) || !file.ReadInteger(hi)) return false;
    if (AdjustVectorSize) {
      constexpr Int64 kCell = sizeof(T);
      if (hi > 0 && !zor::detail::may_allocate(kCell * hi, file.Remaining())) return false;
      Resize(hi);
    }
    if (hi <= NrOfElem()) {
      result = true;
      zor::detail::RunWriter<T> out([this](auto values, Int64 first) { store_cells(values, first); });
      for (Int64 i = lo; i <= hi && !file.Eof(); ++i) {
        Double x = 0.0;
        if (file.ReadFloat(x)) out.put(i, zor::detail::to_cell<T>(x));
      }
      out.flush();
    }
    file.Close();
    Changed();
  } catch (...) {  // the result says how far it got
  }
  return result;
}

Boolean TVector::LoadFromFile(const TString& FileName, Boolean AdjustVectorSize, Boolean AutoDetect) {
  if (!AutoDetect) return LoadFromFile(FileName, AdjustVectorSize);
  constexpr std::string_view kMark = "//dig";
  const auto marked = [&](std::string_view line) { return line.find(kMark) != line.npos; };
  Boolean result = false;
  try {
    TTextFile file(FileName);
    file.Reset();
    Int64 lines = 0;
    for (std::string_view line; file.read_line(line);) lines += marked(line);
    if (lines == 0) {
      file.Close();
      return LoadFromFile(FileName, AdjustVectorSize);
    }
    if (AdjustVectorSize) Resize(zor::detail::to_integer(static_cast<std::size_t>(lines)));
    file.Reset();
    result = true;
    zor::detail::RunWriter<Double> out([this](auto values, Int64 first) { store_cells(values, first); });
    Int64 i = 1;
    for (std::string_view line; i <= NrOfElem() && file.read_line(line);) {
      if (!marked(line)) continue;
      if (const auto number = zor::detail::parse_number(zor::detail::strip_blanks(line))) out.put(i, number.value);
      ++i;
    }
    out.flush();
    file.Close();
    Changed();
  } catch (...) {  // the result says how far it got
  }
  return result;
}

#define ZOR_INSTANCES(V, T) template Boolean VectorCore<V, T>::LoadFromFile(const TString&, Boolean);

ZOR_INSTANCES(TVector, Double)
ZOR_INSTANCES(TIntVector, Integer)

}  // namespace ZOR_vector

#include <utility>

#include "zor/analysis/curve_fit.h"
#include "zor/base/asc_codec.h"
#include "zor/runtime/text_file.h"

namespace ZOR_math2 {

namespace asc = zor::detail;

TString TCurveFit::ExportAsASC(const TString& FName, const TString& Comment, Integer Precision) const {
  TTextFile file(FName);
  try {
    file.Replace();
  } catch (const Exception& e) {
    return e.what();
  }
  asc::AscHeader header;
  header.Comment = Comment.empty() ? "Exported by ZOR TCurveFit component: " + FName : Comment;
  header.NrCols = 2;
  header.NrRows = NumData();
  header.ColNames = true;
  asc::write_asc_header(file, header, 3);
  file.WriteLn("x   y");
  for (std::size_t i = 0; i < FX.size(); ++i) {
    file.WriteFloat(FX[i], 1, Precision);
    file.Write("\t");
    file.WriteFloat(FY[i], 1, Precision);
    file.WriteLn();
  }
  file.Close();
  return {};
}

Integer TCurveFit::ImportASC(const TString& FName) {
  TTextFile file(FName);
  asc::AscHeader header;
  Integer status = asc::kAscUnreadable;
  try {
    file.Reset();
    status = asc::read_asc_header(file, header);
  } catch (const EInOutError&) {  // no such file, or not readable
  }
  if (status == 0 && header.NomVars) status = asc::kAscBadColumns;
  data_changed();
  if (status != 0) return status;
  if (header.NrCols != 2) {
    throw EZORMath2Error("TCurveFit.ImportASC: number of columns must be 2 (is actually " +
                         TString(std::to_string(header.NrCols)) + ").");
  }
  if (header.ColNames) asc::skip_asc_column_names(file, 2);
  const auto damaged = [&](Integer row) {
    throw EInOutError(FName + ": row " + TString(std::to_string(row)) + " is no row of numbers");
  };
  const Integer rows = asc::asc_rows_to_read(header, file);
  std::vector<Double> x, y;
  x.reserve(zor::detail::to_size(rows));
  y.reserve(zor::detail::to_size(rows));
  for (Integer row = 1; row <= rows; ++row) {
    Double cells[2] = {};
    Double attribute = 0.0;
    if (asc::read_asc_row_head(file, header, &attribute, nullptr) != 0) damaged(row);
    for (Double& cell : cells) {
      if (asc::read_asc_cell(file, cell) == asc::AscCell::kBad) damaged(row);
    }
    x.push_back(cells[0]);
    y.push_back(cells[1]);
  }
  if (rows < header.NrRows) damaged(rows + 1);
  FX = std::move(x);
  FY = std::move(y);
  for (std::size_t i = 0; i < FX.size(); ++i) adjust_sums(FX[i], FY[i]);
  return 0;
}

}  // namespace ZOR_math2

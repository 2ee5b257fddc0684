#include <algorithm>
#include <cstdio>
#include <numeric>
#include <vector>

#include "zor/datatable/data_table.h"
#include "zor/datatable/table_formats_internal.h"
#include "zor/runtime/random.h"
#include "zor/runtime/text.h"

namespace ZOR_datatable {

namespace {

using zor::detail::to_size;

using Lines = std::vector<Integer>;

/// A permutation of 1 to n.
Lines shuffled(Integer n) {
  Lines lines(to_size(n));
  std::iota(lines.begin(), lines.end(), 1);
  for (Integer i = n; i > 1; --i) std::swap(lines[to_size(i - 1)], lines[to_size(ZOR_runtime::Random(i))]);
  return lines;
}

/// Lines 1 to n on parts of the given sizes, in their old order within each part.
std::vector<Lines> distribute(Integer n, const Lines& sizes, TDataSelMode mode) {
  std::vector<Lines> parts(sizes.size());
  if (mode == selmInterleave) {
    std::size_t next = 0;
    for (Integer i = 1; i <= n; ++i) {
      while (parts[next % parts.size()].size() == to_size(sizes[next % parts.size()])) ++next;
      parts[next++ % parts.size()].push_back(i);
    }
    return parts;
  }
  Lines order(to_size(n));
  std::iota(order.begin(), order.end(), 1);
  if (mode == selmRandSel) order = shuffled(n);
  auto at = order.begin();
  for (std::size_t k = 0; k < parts.size(); ++k) {
    parts[k].assign(at, at + sizes[k]);
    at += sizes[k];
    std::sort(parts[k].begin(), parts[k].end());
  }
  return parts;
}

/// A test set of t lines spread evenly over n.
Lines spread(Integer n, Integer t) {
  Lines lines;
  for (Int64 i = 0; i < n; ++i) {
    if ((i + 1) * t / n > i * t / n) lines.push_back(static_cast<Integer>(i + 1));
  }
  return lines;
}

Lines others(Integer n, const Lines& lines) {
  Lines rest;
  for (Integer i = 1; i <= n; ++i) {
    if (!std::binary_search(lines.begin(), lines.end(), i)) rest.push_back(i);
  }
  return rest;
}

Lines part_sizes(Integer n, Integer size) {
  Lines sizes(to_size((Int64{n} + size - 1) / size), size);
  sizes.back() = n - size * static_cast<Integer>(sizes.size() - 1);
  return sizes;
}

/// "data_##.csv" and the number of a part.
TString part_name(const TString& name_template, const char* kind, std::size_t number) {
  std::string name = name_template.utf8();
  const std::size_t extension = ZOR_runtime::ExtractFileExt(name_template).utf8().size();
  std::size_t at = name.find('#');
  std::size_t width = 0;
  if (at == name.npos) {
    at = name.size() - extension;
    name.insert(at, "_###");
    ++at;
  }
  while (at + width < name.size() && name[at + width] == '#') ++width;
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return name.replace(at, width, kind + digits);
}

TString save(const TDataTable& part, const TString& name) {
  const TString extension = LowerCase(ZOR_runtime::ExtractFileExt(name));
  if (extension == ".csv") return part.ExportAsCSV(name, -1, csvComma, true, true);
  if (extension != ".xml") return part.ExportAsASC(name, -1);
  return zor::detail::failure_of([&] { part.SaveAsXMLFile(name, 0, ""); });
}

}  // namespace

Integer TDataTable::PrepareSplitCounts(TDataSetSplitMode SplitMode, Integer SplitSize, Boolean CreateAllPairs,
                                       TIntArray& DataCnts) const {
  if (SplitMode > splitTstTrn) return kBadSplitMode;
  if (NrOfColumns() == 0 || NrOfRows() == 0) return kNothingToSplit;
  const Integer n = SplitMode == splitColumns ? NrOfColumns() : NrOfRows();
  if (SplitSize < 1 || SplitSize > n || (SplitMode == splitTstTrn && SplitSize == n)) return kBadSplitSize;
  Lines counts = SplitMode == splitTstTrn && !CreateAllPairs ? Lines{SplitSize} : part_sizes(n, SplitSize);
  if (SplitMode == splitTstTrn) {
    Lines pairs;
    for (const Integer test : counts) pairs.insert(pairs.end(), {test, n - test});
    counts = pairs;
  }
  DataCnts = TIntArray(counts.begin(), counts.end());
  return Length(DataCnts);
}

Integer TDataTable::SplitDataSet(TDataSetSplitMode SplitMode, TDataSelMode SelMode, Integer SplitSize,
                                 Boolean CreateAllPairs, const TString& FNameTemplate, Boolean AllowOverWrite,
                                 TStringList* FileNames) {
  TIntArray counts;
  const Integer files = PrepareSplitCounts(SplitMode, SplitSize, CreateAllPairs, counts);
  if (files < 0) return files;
  if (SelMode > selmInterleave) return kBadSplitMode;
  const bool pairs = SplitMode == splitTstTrn;
  const Integer columns = NrOfColumns(), rows = NrOfRows();
  const Integer n = SplitMode == splitColumns ? NrOfColumns() : NrOfRows();
  std::vector<Lines> parts;
  if (!pairs) {
    parts = distribute(n, Lines(counts.begin(), counts.end()), SelMode);
  } else if (CreateAllPairs) {
    for (const Lines& test : distribute(n, part_sizes(n, SplitSize), SelMode)) {
      parts.push_back(test);
      parts.push_back(others(n, test));
    }
  } else {
    parts.push_back(SelMode == selmInterleave ? spread(n, SplitSize)
                                              : distribute(n, {SplitSize, n - SplitSize}, SelMode)[0]);
    parts.push_back(others(n, parts[0]));
  }
  std::vector<TString> names;
  for (std::size_t k = 0; k < parts.size(); ++k) {
    names.push_back(pairs ? part_name(FNameTemplate, k % 2 == 0 ? "tst" : "trn", k / 2 + 1)
                          : part_name(FNameTemplate, "", k + 1));
  }
  if (FileNames) FileNames->Clear();
  if (!AllowOverWrite && std::any_of(names.begin(), names.end(), ZOR_runtime::FileExists)) return kFileExists;
  for (std::size_t k = 0; k < parts.size(); ++k) {
    // A handler of OnPercentDone may have changed the size.
    const bool same_size = NrOfColumns() == columns && NrOfRows() == rows;
    TDataTable part;
    if (same_size) part.take_part(*this, SplitMode == splitColumns ? dimCols : dimRows, parts[k]);
    if (!same_size || !save(part, names[k]).empty()) {
      for (std::size_t i = 0; i <= k; ++i) std::remove(names[i].utf8().c_str());
      if (FileNames) FileNames->Clear();
      return kCannotWriteParts;
    }
    if (FileNames) FileNames->Add(names[k]);
    PercDone(this, static_cast<Integer>((k + 1) * 100 / parts.size()));
  }
  return files;
}

void TDataTable::take_part(const TDataTable& from, TDims dim, std::span<const Integer> chosen) {
  const Integer n = zor::detail::to_integer(chosen.size());
  TTableImage image = dim == dimCols ? TTableImage(n, from.NrOfRows()) : TTableImage(from.NrOfColumns(), n);
  image.comment = from.FFrame.comment;
  for (Integer c = 0; c < image.ncols(); ++c) {
    const Integer col = dim == dimCols ? chosen[to_size(c)] : c + 1;
    image.columns[c] = from.FFrame.columns[col - 1];
    for (Integer r = 0; r < image.nrows(); ++r) {
      const Integer row = dim == dimRows ? chosen[to_size(r)] : r + 1;
      image.cells[c][r] = from.NumericData->GetVal(col, row);
      image.states[c][r] = from.FFrame.states[col - 1][row - 1];
    }
  }
  for (Integer r = 0; r < image.nrows(); ++r)
    image.rows[r] = from.FFrame.rows[(dim == dimRows ? chosen[to_size(r)] : r + 1) - 1];
  commit(image);
}

}  // namespace ZOR_datatable

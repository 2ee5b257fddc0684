#pragma once

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <span>
#include <string>

#include "examples/tour/csv.h"
#include "examples/tour/page.h"
#include "zor/arrays/ZOR_openarrays.h"

/// \file  Between pictures as arrays, picture files, and the report.

namespace tour {

/// A picture whose lines of text are its rows, as columns of brightness: result[x][y].
inline ZOR_openarrays::TDouble2DArray read_photo(const std::filesystem::path& file) {
  const CsvTable table = read_plain_csv(file);
  ZOR_openarrays::TDouble2DArray photo;
  for (const auto& name : table.names) {
    const std::vector<double> column = table.numbers(name);
    ZOR_zorbase::SetLength(photo, ZOR_zorbase::Length(photo) + 1);
    photo[ZOR_zorbase::Length(photo) - 1] = ZOR_openarrays::TDoubleArray(column.begin(), column.end());
  }
  return photo;
}

/// Brightness as colours: the same amount of red, green, blue.
inline ZOR_openarrays::TInt2DArray grey(const ZOR_openarrays::TDouble2DArray& photo) {
  ZOR_openarrays::TInt2DArray picture;
  ZOR_openarrays::CloneArray(photo, picture);
  ZOR_openarrays::MultiplyArrayByScalar(picture, 0x010101);
  return picture;
}

/// Paints the cells of the picture whose mark has that value.
inline void paint(ZOR_openarrays::TInt2DArray& picture, const ZOR_openarrays::TDouble2DArray& marks, double mark,
                  ZOR_zorcolors::TColor colour) {
  for (std::size_t x = 0; x < picture.size(); ++x)
    for (std::size_t y = 0; y < picture[x].size(); ++y)
      if (marks[x][y] == mark) picture[x][y] = colour;
}

/// Puts a picture of colours on the page, by way of a PNG file of that name.
inline void show(Page& page, const std::string& name, const ZOR_openarrays::TInt2DArray& picture,
                 const std::string& title, const std::string& caption) {
  const std::string file = page.scratch(name).string();
  ZOR_openarrays::SaveArrayAsImg(file, picture, 2);
  const std::string png = read_text(file);
  plot::Chart chart(title);
  page.figure(chart.image(std::as_bytes(std::span(png)), picture.size(), picture[0].size()), caption);
}

/// Root of the mean squared difference of two pictures of the same size.
inline double distance(const ZOR_openarrays::TDouble2DArray& a, const ZOR_openarrays::TDouble2DArray& b) {
  double sum = 0.0, cells = 0.0;
  for (std::size_t x = 0; x < a.size(); ++x) {
    sum += ZOR_openarrays::SumOfSquaredDiffs(a[x], b[x]);
    cells += static_cast<double>(a[x].size());
  }
  return std::sqrt(sum / cells);
}

}  // namespace tour

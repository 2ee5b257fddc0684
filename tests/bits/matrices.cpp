#include <algorithm>

#include "bits.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/runtime/random.h"

using namespace ZOR_matrix;

ZOR_BITS(matrices) {
  TMatrix m;
  m.Resize(37, 101);
  const std::vector<double> x = bits::noise(37 * 101, 5);
  {
    auto edit = m.Edit();
    for (Integer c = 1; c <= 37; ++c) std::copy_n(x.begin() + 101 * (c - 1), 101, edit.Column(c).begin());
  }
  const auto cells = [](const TMatrix& matrix) {
    std::vector<double> all;
    for (Integer c = 1; c <= matrix.NrOfColumns(); ++c)
      all.insert(all.end(), matrix.Column(c).begin(), matrix.Column(c).end());
    return all;
  };
  m.Transpose();
  bits::print("transposed", cells(m));
  TMemoryStream document;
  m.WriteToXMLStream(&document, false, "");
  document.SetPosition(0);
  TMatrix read;
  read.ReadFromXMLStream(&document, "");
  bits::print("read from a document", cells(read));
  Integer col = 0, row = 0;
  m.Find(0, 0, 0, 0, 0.125, col, row);
  bits::print("nearest cell", std::vector{static_cast<double>(col), static_cast<double>(row)});
  m.FillSerial(0.1, 0.7);
  bits::print("series", cells(m));
  ZOR_runtime::RandSeed = 11;
  m.FillRandomUniform(-1.0, 3.0);
  bits::print("uniform", cells(m));
  m.FillRandomGauss(1.0, 2.0);
  bits::print("gauss", cells(m));
}

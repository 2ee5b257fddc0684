#include <algorithm>

#include "bits.h"
#include "zor/runtime/random.h"
#include "zor/vectors/ZOR_vector.h"

using namespace ZOR_vector;

ZOR_BITS(vectors) {
  const std::vector<double> x = bits::noise(10007, 3), y = bits::noise(10007, 4);
  TVector v, w;
  for (auto [vec, cells] : {std::pair{&v, &x}, std::pair{&w, &y}}) {
    vec->SetNrOfElem(static_cast<Integer>(cells->size()));
    std::ranges::copy(*cells, vec->Edit().begin());
  }
  double a = 0, b = 0, c = 0;
  v.MeanVar(0, 0, a, b);
  bits::print("mean and variance", std::vector{a, b});
  v.Quartiles(0, 0, a, b, c);
  bits::print("quartiles", std::vector{a, b, c, v.Percentile(12.5, 0, 0)});
  v.SkewKurt(0, 0, a, b);
  bits::print("skewness and kurtosis", std::vector{a, b});
  bits::print("correlation", v.PearsonCorrCoeff(&w));
  bits::print("lag product", v.Correlate(&w, 17));
  bits::print("distance", v.EuclideanDistance(&w));
  bits::print("integral", v.Integrate(3.25, 9000.75, imSimpson));
  bits::print("length", v.Leng());
  v.Standardize(a, b);
  bits::print("standardized", v.Cells());
  v.Add(&w);
  v.SMult(0.1);
  v.SortElems(true, 0, 0);
  bits::print("sorted", v.Cells());
  ZOR_runtime::RandSeed = 11;
  v.FillRandomUniform(-1.0, 3.0);
  bits::print("uniform", v.Cells());
}

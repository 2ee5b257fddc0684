#include <vector>

#include "bits.h"
#include "zor/arrays/ZOR_openarrays.h"

using namespace ZOR_openarrays;

ZOR_BITS(arrays) {
  const std::vector<double> x = bits::noise(10007, 5), y = bits::noise(10007, 6);
  const TDoubleArray a(x.begin(), x.end()), b(y.begin(), y.end());
  TDoubleArray res;
  AddArrays(a, b, res);
  bits::print("sum", res);
  MultiplyArraysElemw(a, b, res);
  bits::print("product", res);
  AccumulateArray(res, a, 0.1);
  ReciprocalArray(res, 0.0);
  bits::print("accumulated reciprocal", res);
  TDouble2DArray plane;
  SetLength(plane, 37, 53);
  FillArraySerial(plane, 0.3, 0.1);
  bits::print("running series", plane[36]);
  FillArraySerial(res, 0.3, 0.1);
  bits::print("series", res);
  double mean = 0, variance = 0;
  MeanVarArray(a, 1, 9999, mean, variance);
  bits::print("mean and variance", std::vector{mean, variance});
  MeanAbsDev(a, 0, mean);
  bits::print("mean absolute deviation", mean);
  MeanArray(plane, 3, 4, 30, 50, mean);
  bits::print("mean of a range", mean);
  TIntArray ix, histogram;
  res = TDoubleArray(x.begin(), x.end());
  SortArray(false, res, ix);
  bits::print("sorted", res);
  bits::print("where they stood", std::vector<double>(ix.begin(), ix.end()));
  bits::print("percentile", PercentileArray(33.0, a));
  Integer below = 0, above = 0, most = 0;
  FrequDistOfArray(a, 0, 0, -0.9, 0.8, 0.1, histogram, below, above, most);
  bits::print("frequencies", std::vector<double>(histogram.begin(), histogram.end()));
  TDouble2DArray pair = {TDoubleArray(x.begin(), x.end()), TDoubleArray(y.begin(), y.end())};
  bits::print("correlation", PearsonCorrCoeffColsOfArray(pair, 0, 1));
  TDoubleArray means = {0};
  MeanCenterColumnsOfArray(pair, means);
  NormalizeRows(pair);
  NormalizeColumns(pair);
  bits::print("means of columns", means);
  bits::print("normalised column", pair[1]);
}

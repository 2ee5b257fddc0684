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
  TDouble2DArray block = {TDoubleArray(x.begin(), x.begin() + 5003), TDoubleArray(x.begin() + 5003, x.begin() + 10006)};
  bits::print("percentile of a plane", PercentileArray(71.0, block, 0, 7, 1, 4999));
  StdDevArray(block, 0, 3, 1, 5000, mean);
  bits::print("deviation of a range", mean);
  TBool2DArray mask;
  DichotomizeArray(block, -0.5, 0.5, mask);
  FrequDistOfArray(block, mask, 0, 0, 0, 0, -0.9, 0.8, 0.07, histogram, below, above, most);
  bits::print("frequencies outside a mask", std::vector<double>(histogram.begin(), histogram.end()));
  SumArrayMasked(block, mask, mean);
  bits::print("sum outside a mask", mean);
  bits::print("sum of squared differences", SumOfSquaredDiffs(a, b));
  TDoubleArray scaled;
  MultiplyArrayByScalar(a, 1e4, scaled);
  CloneArray(scaled, ix);
  bits::print("rounded to integers", std::vector<double>(ix.begin(), ix.end()));
  FlipDimArray(block, 2);
  bits::print("turned around", block[1]);
  TransposeArray(block);
  SerializeArray(block, true, scaled);
  bits::print("transposed", scaled);
  TDouble2DArray pair = {TDoubleArray(x.begin(), x.end()), TDoubleArray(y.begin(), y.end())};
  bits::print("correlation", PearsonCorrCoeffColsOfArray(pair, 0, 1));
  TDoubleArray means = {0};
  MeanCenterColumnsOfArray(pair, means);
  NormalizeRows(pair);
  NormalizeColumns(pair);
  bits::print("means of columns", means);
  bits::print("normalised column", pair[1]);
}

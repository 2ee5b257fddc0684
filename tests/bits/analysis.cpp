#include <algorithm>
#include <vector>

#include "bits.h"
#include "zor/analysis/ZOR_math2.h"

using namespace ZOR_math2;

ZOR_BITS(analysis) {
  const std::vector<double> x = bits::noise(5003, 11);
  TVector signal, result;
  signal.SetNrOfElem(5003);
  result.SetNrOfElem(5003);
  std::ranges::copy(x, signal.Edit().begin());
  const auto print = [&](const char* name) { bits::print(name, std::vector<double>(result.begin(), result.end())); };
  MovingAverageSmooth(&signal, 1, 5003, &result, 9);
  print("moving average");
  WeightedAverageSmooth(&signal, 1, 5003, &result, 25);
  print("weighted average");
  MovingMedianSmooth(&signal, 1, 5003, &result, 25);
  print("moving median");
  MovingMedianSmooth(&signal, 1, 5003, &result, 51);
  print("moving median of long windows");
  PolynomialSmooth(&signal, 1, 5003, &result, 25);
  print("polynomial smoothing");
  SecondDeriv(&signal, 1, 5003, &result, 11);
  print("second derivative");
  FirstDeriv(&signal, 1, 5003, &result, 11);
  print("first derivative");
}

#include <string>
#include <vector>

#include "bits.h"
#include "zor/arrays/ZOR_openarrays.h"

using namespace ZOR_openarrays;

namespace {

template <class A>
std::vector<double> cells(const A& picture) {
  std::vector<double> all;
  for (const auto& column : picture) all.insert(all.end(), column.begin(), column.end());
  return all;
}

/// Noise of 61 columns and 83 rows between -3 and 3, rounded or not.
template <class A>
A picture(std::uint64_t seed) {
  const std::vector<double> noise = bits::noise(61 * 83, seed);
  A made;
  SetLength(made, 61, 83);
  std::size_t i = 0;
  for (auto& column : made) {
    for (auto& cell : column) {
      const double x = noise[i++];
      cell = static_cast<CellType<A>>(x - 6.0 * static_cast<double>(static_cast<Int64>(x / 6.0)) - (x < 0 ? -3 : 3));
    }
  }
  return made;
}

void print_fills() {
  for (const bool four : {true, false}) {
    const std::string how = four ? "over sides" : "over corners";
    Integer row_max = 0, row_min = 0, col_min = 0, col_max = 0;
    auto steps = picture<TInt2DArray>(3);
    auto slopes = picture<TDouble2DArray>(4);
    double filled = FloodFillArray(30, 40, 99, four, steps, row_max, row_min, col_min, col_max);
    bits::print("region of steps " + how,
                std::vector<double>{filled, double(row_max), double(row_min), double(col_min), double(col_max)});
    bits::print("steps filled " + how, cells(steps));
    filled = FloodFillArray(30, 40, 1.7, slopes[30][40], four, slopes, row_max, row_min, col_min, col_max);
    bits::print("region of slopes " + how,
                std::vector<double>{filled, double(row_max), double(row_min), double(col_min), double(col_max)});
    bits::print("slopes filled " + how, cells(slopes));
  }
}

void print_masks() {
  TBool2DArray mask;
  SetLength(mask, 61, 83);
  CreateMaskShape(mask, skEllipse, {3, 5, 16, 27});
  CreateMaskShape(mask, skRing, {40, 30, 12, 25});
  CreateMaskShape(mask, skCircle, {10, 70, 15});
  CreateMaskShape(mask, skRectangle, {50, 60, 99, 99});
  bits::print("mask", cells(mask));
  auto slopes = picture<TDouble2DArray>(5);
  FillArrayMasked(slopes, -7.5, mask);
  bits::print("around the mask", cells(slopes));
}

template <class A>
void print_projections(const std::string& of) {
  const auto made = picture<A>(6);
  TDoubleArray edge;
  for (const auto orient : {orHorizontal, orVertical}) {
    for (const auto op : {eoMin, eoMax, eoSum, eoMean, eoStdDev}) {
      EdgeVector(made, orient, op, {3, 17, 59, 4, 3}, edge);
      bits::print(of + " on edge " + std::to_string(orient) + ", operation " + std::to_string(op), edge);
    }
  }
}

template <class A>
void print_filters(const std::string& of) {
  const auto made = picture<A>(7);
  std::vector<double> means, medians;
  for (Integer i = -2; i < 85; ++i) {
    means.push_back(LocalMean(made[20], i, 4, 1, 79));
    medians.push_back(LocalMedian(made[20], i, 4, 1, 79));
  }
  bits::print("local means of " + of, means);
  bits::print("local medians of " + of, medians);
}

}  // namespace

ZOR_BITS(raster) {
  print_fills();
  print_masks();
  print_projections<TDouble2DArray>("slopes");
  print_projections<TInt2DArray>("steps");
  print_filters<TDouble2DArray>("slopes");
  print_filters<TInt2DArray>("steps");
  auto slopes = picture<TDouble2DArray>(8);
  TIntArray breaks;
  CheckLinearity(slopes[9], 0.8, breaks);
  bits::print("bends", std::vector<double>(breaks.begin(), breaks.end()));
  std::vector<double> distances;
  for (const auto mode : {dmTanimoto, dmManhattan, dmEuclid, dmEuclidSqr, dmDice}) {
    distances.push_back(0.0);
    DistanceOfObjects(slopes, mode, 7, 42, 2, 58, distances.back());
  }
  bits::print("distances", distances);
  DiscretizeArray(slopes, 199, -1.9, 2.3, -1.0, 1.0);
  bits::print("levels", cells(slopes));
}

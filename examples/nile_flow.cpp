// Yearly flow of the Nile at Aswan 1871-1970 (Cobb 1978): location, spread, and the drop after 1898.
#include <fstream>
#include <iostream>
#include <string>

#include "zor/vectors/ZOR_vector.h"

int main() {
  ZOR_vector::TVector flow;
  flow.SetNrOfElem(100);
  std::ifstream file(ZOR_EXAMPLES_DATA "/nile.csv");
  std::string field;
  std::getline(file, field);  // the names of the columns
  for (int year = 1; year <= 100 && std::getline(file, field, ',') && std::getline(file, field); ++year) {
    flow.SetVal(year, std::stod(field));
  }

  double mean, variance, q1, median, q3, before, after;
  flow.MeanVar(0, 0, mean, variance);
  flow.Quartiles(0, 0, q1, median, q3);
  flow.MeanVar(1, 28, before, variance);
  flow.MeanVar(29, 100, after, variance);
  std::cout << "mean " << mean << ", quartiles " << q1 << ' ' << median << ' ' << q3 << " (1e8 cubic metres)\n"
            << "until 1898 " << before << ", afterwards " << after << '\n';

  int lowest, highest;
  double minimum, maximum;
  flow.MinMax(0, 0, minimum, maximum, lowest, highest);
  std::cout << "lowest in " << 1870 + lowest << ", highest in " << 1870 + highest << '\n';
}

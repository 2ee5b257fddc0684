// Yearly flow of the Nile at Aswan (Cobb 1978): where half of the years lie, and how alike neighbouring years are.
#include <fstream>
#include <iostream>
#include <string>

#include "zor/vectors/ZOR_vector.h"

int main() {
  std::ifstream file("examples/data/nile.csv");
  std::string line;
  std::getline(file, line);  // the names of the columns
  ZOR_vector::TVector flow;
  for (int n = 1; std::getline(file, line); ++n) {
    flow.SetNrOfElem(n);
    flow.SetVal(n, std::stod(line.substr(line.find(',') + 1)));
  }
  double mean, variance, q1, median, q3;
  flow.MeanVar(0, 0, mean, variance);
  flow.Quartiles(0, 0, q1, median, q3);
  std::cout << flow.NrOfElem() << " years, mean " << mean << "\n"
            << "half of them between " << q1 << " and " << q3 << ", median " << median << "\n";
  flow.MeanCenter();
  std::cout << "correlation with the year before " << flow.Correlate(&flow, 1) / flow.Correlate(&flow, 0) << "\n";
}

// What a user of the library starts with: arrays, text and errors cross its border, headers and library agree.
#include <iostream>
#include <string_view>

#include "zor/base/ZOR_zorbase.h"
#include "zor/version.h"

int main() {
  using namespace ZOR_zorbase;

  TDoubleArray x = {1.0, 2.0, 3.0};
  SetLength(x, 5);
  double sum = 0.0;
  for (double value : x) sum += value;

  bool caught = false;
  try {
    throw EMathError("Größe");
  } catch (const Exception& e) {
    caught = std::string_view(e.what()) == "Größe";
  }

  const bool same_version = std::string_view(zor::version()) == ZOR_VERSION;
  std::cout << "zor " << zor::version() << ", sum " << sum << '\n';
  return Length(x) == 5 && sum == 6.0 && caught && same_version ? 0 : 1;
}

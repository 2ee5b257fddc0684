#include "bits.h"
#include "zor/runtime/number_text.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/random.h"

using namespace ZOR_runtime;

ZOR_BITS(runtime) {
  RandSeed = 12345;
  std::vector<double> draws(1000);
  for (double& draw : draws) draw = Random();
  bits::print("random numbers", draws);

  const std::vector<double> x = bits::noise(1000);
  bits::print("standard deviation", StdDev(x));
  std::vector<double> rounded, read_back;
  for (const double value : x) {
    rounded.push_back(SimpleRoundTo(value, -3));
    double back = 0.0;
    Integer code = 0;
    Val(Str(value, 20, 5), back, code);
    read_back.push_back(code == 0 ? back : -1.0);
  }
  bits::print("rounded", rounded);
  bits::print("read back", read_back);
}

#include "bits.h"
#include "zor/base/ZOR_stringl.h"
#include "zor/scalar/ZOR_math1.h"

using namespace ZOR_math1;

namespace {

void append(std::vector<double>& cells, const TString& text) {
  for (const Char unit : text.units()) cells.push_back(unit);
  cells.push_back(-1.0);
}

}  // namespace

ZOR_BITS(number_text) {
  const std::vector<double> x = bits::noise(2000, 9);
  std::vector<double> fixed, scientific, engineering, angles, numbers, read_angles, dates;
  Integer digits = 0;
  for (const double value : x) {
    digits = digits % 12 + 1;
    append(fixed, ZOR_stringl::strff(value, 12, digits));
    append(scientific, strf(value, digits + 8, -2));
    append(scientific, MakeEFormat(value, 20, digits));
    append(engineering, EEngStr(value, digits - 6));
    const TString angle = DegreeToStr(value / 1000.0, static_cast<TDegreeFormat>(digits % 4), digits % 9);
    append(angles, angle);
    Integer at = 1, kind = 0;
    numbers.push_back(ScanFPNum(Str(value * 1e-5, 26), true, 1, at));
    at = 1;
    read_angles.push_back(ScanDegrees(angle, at, true, kind));
    at = 1;
    const TString time = Decimal(digits, 2) + ".03.20" + Decimal(digits, 2) + " 01:02:" + Decimal(digits, 2);
    dates.push_back(ScanDateTime(time, "dd.mm.yyyy hh:nn:ss", lgEnglish, at));
  }
  bits::print("fixed", fixed);
  bits::print("scientific", scientific);
  bits::print("engineering", engineering);
  bits::print("angles", angles);
  bits::print("numbers read", numbers);
  bits::print("angles read", read_angles);
  bits::print("dates read", dates);
}

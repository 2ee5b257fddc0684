#include "examples/tour/certified.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>

#include "examples/tour/csv.h"

namespace tour {
namespace {

// The number behind the last colon of the line that begins with `label`.
double value_of(const std::string& text, const std::string& label, const std::string& file) {
  const auto at = text.find("\n" + label);
  if (at == std::string::npos) throw std::runtime_error(file + ": no line \"" + label + "\"");
  const std::string line = text.substr(at + 1, text.find('\n', at + 1) - at - 1);
  double value = 0.0;
  if (!to_number(std::string_view(line).substr(line.rfind(':') + 1), value))
    throw std::runtime_error(file + ": no number in \"" + line + "\"");
  return value;
}

}  // namespace

CertifiedSample read_certified(const std::filesystem::path& file) {
  const std::string text = read_text(file), name = file.filename().string();
  CertifiedSample sample{file.stem().string(),
                         {},
                         value_of(text, "Sample Mean", name),
                         value_of(text, "Sample Standard Deviation", name),
                         value_of(text, "Sample Autocorrelation", name)};
  const double announced = value_of(text, "Number of Observations", name);
  std::istringstream rest(text.substr(std::min(text.find("\n-----"), text.size())));
  double value = 0.0;
  for (std::string line; std::getline(rest, line);)
    if (to_number(line, value)) sample.y.push_back(value);
  if (static_cast<double>(sample.y.size()) != announced)
    throw std::runtime_error(name + ": " + std::to_string(sample.y.size()) + " observations");
  return sample;
}

double digits_reached(double value, double certified) {
  const double error = std::fabs(value - certified) / std::fabs(certified);
  if (!(error < 1.0)) return 0.0;
  return std::clamp(-std::log10(error), 0.0, 15.0);
}

}  // namespace tour

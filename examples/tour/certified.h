#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// \file  Reader of the NIST reference data sets of one sample, and the measure of agreement with them.

namespace tour {

/// A sample and what it is certified to give.
struct CertifiedSample {
  std::string name;
  std::vector<double> y;
  double mean, stddev, autocorrelation;  // with n - 1; lag 1
};

/// Reads such a file; std::runtime_error if a certified value or an observation is missing.
CertifiedSample read_certified(const std::filesystem::path& file);

/// Number of decimal digits in which `value` agrees with `certified`: -log10 of the relative error, from 0 to 15.
double digits_reached(double value, double certified);

}  // namespace tour

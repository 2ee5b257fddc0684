#include "zor/analysis/kernel_filter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <string>
#include <string_view>

#include "zor/kernels/moving.h"
#include "zor/vectors/store_internal.h"

namespace ZOR_math2 {

namespace {

constexpr Double kPi = std::numbers::pi;

Double window_weight(Integer WindowKind, Double phase) {
  if (WindowKind == 1) return 0.54 - 0.46 * std::cos(phase);
  if (WindowKind == 2) return 0.42 - 0.5 * std::cos(phase) + 0.08 * std::cos(2.0 * phase);
  return 1.0;
}

void fill_low_pass(std::span<Double> kernel, Double cut_off, Integer WindowKind) {
  const auto size = static_cast<Double>(kernel.size()), middle = static_cast<Double>(kernel.size() / 2 + 1);
  const Double omega = 2.0 * kPi * std::clamp(cut_off, 0.0, 0.5);
  Double sum = 0.0, place = 1.0;
  for (Double& element : kernel) {
    element = place == middle ? omega : std::sin(omega * (place - middle)) / (place - middle);
    element *= window_weight(WindowKind, 2.0 * kPi * place / (size + 1.0));
    sum += element;
    place += 1.0;
  }
  if (sum == 0.0) return;
  for (Double& element : kernel) element /= sum;
}

/// A unit impulse less the kernel.
void invert_spectrum(std::span<Double> kernel) {
  for (Double& element : kernel) element = -element;
  kernel[kernel.size() / 2] += 1.0;
}

TDoubleArray low_pass(std::string_view routine, Integer KernelSize, Double cut_off, Integer WindowKind) {
  if (KernelSize < 1) zor::detail::Fail<EZORMath2Error>(std::string(routine) + ": invalid kernel size");
  TDoubleArray kernel;
  zor::detail::set_length_unset(kernel, zor::detail::to_size(KernelSize));
  fill_low_pass(kernel, cut_off, WindowKind);
  return kernel;
}

TDoubleArray high_pass(std::string_view routine, Integer KernelSize, Double cut_off, Integer WindowKind) {
  TDoubleArray kernel = low_pass(routine, KernelSize, cut_off, WindowKind);
  invert_spectrum(kernel);
  return kernel;
}

TDoubleArray band_stop(std::string_view routine, Integer KernelSize, Double a, Double b, Integer WindowKind) {
  TDoubleArray kernel = low_pass(routine, KernelSize, (std::min)(a, b), WindowKind);
  const TDoubleArray above = high_pass(routine, KernelSize, (std::max)(a, b), WindowKind);
  for (std::size_t i = 0; i < kernel.size(); ++i) kernel[i] += above[i];
  return kernel;
}

TDoubleArray band_pass(std::string_view routine, Integer KernelSize, Double a, Double b, Integer WindowKind) {
  TDoubleArray kernel = band_stop(routine, KernelSize, a, b, WindowKind);
  invert_spectrum(kernel);
  return kernel;
}

TVector& required(std::string_view routine, TVector* vector) {
  if (!vector) zor::detail::Fail<EZORMath2Error>(std::string(routine) + ": argument is undefined");
  return *vector;
}

}  // namespace

void CalcSincLPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TVector* Kernel) {
  TVector& to = required("CalcSincLPKernel", Kernel);
  zor::detail::store(to, low_pass("CalcSincLPKernel", KernelSize, CutOff, WindowKind));
}
void CalcSincLPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TDoubleArray& Kernel) {
  Kernel = low_pass("CalcSincLPKernel", KernelSize, CutOff, WindowKind);
}

void CalcSincHPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TVector* Kernel) {
  TVector& to = required("CalcSincHPKernel", Kernel);
  zor::detail::store(to, high_pass("CalcSincHPKernel", KernelSize, CutOff, WindowKind));
}
void CalcSincHPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TDoubleArray& Kernel) {
  Kernel = high_pass("CalcSincHPKernel", KernelSize, CutOff, WindowKind);
}

void CalcSincBSKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TVector* Kernel) {
  TVector& to = required("CalcSincBSKernel", Kernel);
  zor::detail::store(to, band_stop("CalcSincBSKernel", KernelSize, CutOff1, CutOff2, WindowKind));
}
void CalcSincBSKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TDoubleArray& Kernel) {
  Kernel = band_stop("CalcSincBSKernel", KernelSize, CutOff1, CutOff2, WindowKind);
}

void CalcSincBPKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TVector* Kernel) {
  TVector& to = required("CalcSincBPKernel", Kernel);
  zor::detail::store(to, band_pass("CalcSincBPKernel", KernelSize, CutOff1, CutOff2, WindowKind));
}
void CalcSincBPKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TDoubleArray& Kernel) {
  Kernel = band_pass("CalcSincBPKernel", KernelSize, CutOff1, CutOff2, WindowKind);
}

void MovingKernelFilter(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                        const TVector* FilterKernel) {
  if (!SourceVec || !DestVec || !FilterKernel) {
    zor::detail::Fail<EZORMath2Error>("MovingKernelfilter: SourceVec, DestVec and/or FilterKernel is undefined");
  }
  const Integer size = SourceVec->NrOfElem();
  const Integer a = std::clamp(FirstElem, 1, size), b = std::clamp(LastElem, 1, size);
  const std::size_t first = zor::detail::to_size((std::min)(a, b)), last = zor::detail::to_size((std::max)(a, b));
  const std::size_t length = FilterKernel->Cells().size(), half = length / 2, count = last - first + 1;
  if (last - first < length) {
    zor::detail::Fail<EZORMath2Error>(
        "MovingKernelfilter: specified range for smoothing is smaller than the length of the kernel");
  }
  // The range with its end cells repeated, so that every place has a whole window.
  TDoubleArray padded;
  zor::detail::set_length_unset(padded, count + length - 1);
  const std::span<const Double> range = SourceVec->Cells().subspan(first - 1, count);
  const auto middle = std::fill_n(padded.begin(), half, range.front());
  std::fill(std::ranges::copy(range, middle).out, padded.end(), range.back());
  TDoubleArray kernel;
  zor::detail::set_length_unset(kernel, length);
  std::ranges::copy(FilterKernel->Cells(), kernel.begin());

  DestVec->SetNrOfElem(size);
  const auto edit = DestVec->Edit();
  const std::size_t room = (std::min)(count, edit.cells().size());
  zor::kernels::moving_weighted(std::span<const Double>(padded).first(room + length - 1), kernel, 1.0,
                                edit.cells().first(room));
}

}  // namespace ZOR_math2

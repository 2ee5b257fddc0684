#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/vectors/vector.h"

/// \file  Filters with a finite kernel.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_vector::TVector;

/// Filters elements FirstElem to LastElem, bounds moved into SourceVec and exchanged if reversed, by a kernel of K
/// elements: the value at i, which goes to DestVec[i - FirstElem + 1], is the sum over k = 1 to K, in this order, of
/// SourceVec[i - K div 2 + k - 1] * FilterKernel[k]. The kernel is not reversed; left and right of the range its first
/// and last element repeat. An even K leans half an element to the left. DestVec gets the size of SourceVec and may be
/// one of the two others. OnChange, OnResize of a new size, OnChange. Raises EZORMath2Error "MovingKernelfilter:
/// SourceVec, DestVec and/or FilterKernel is undefined", "MovingKernelfilter: specified range for smoothing is smaller
/// than the length of the kernel": at least K + 1 elements are needed.
ZOR_API void MovingKernelFilter(const TVector* SourceVec, Integer FirstElem, Integer LastElem, TVector* DestVec,
                                const TVector* FilterKernel);

/// \name Windowed sinc kernels
/// Kernels of KernelSize elements around the element KernelSize div 2 + 1, for MovingKernelFilter. Cut-off frequencies
/// are fractions of the sampling rate, moved into 0 to 0.5. WindowKind 1 is Hamming's window, 2 Blackman's, any other
/// value none; it is centred at (KernelSize + 1) / 2, half an element beside the kernel's centre if KernelSize is even.
/// The kernel gets its size here. KernelSize < 1 raises EZORMath2Error "<Routine>: invalid kernel size", a null vector
/// "<Routine>: argument is undefined".
/// @{
/// Passes frequencies below CutOff; the elements sum to 1, unless all are 0 (CutOff 0).
ZOR_API void CalcSincLPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TVector* Kernel);
ZOR_API void CalcSincLPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TDoubleArray& Kernel);
/// Passes frequencies above CutOff: a unit impulse less the low-pass kernel.
ZOR_API void CalcSincHPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TVector* Kernel);
ZOR_API void CalcSincHPKernel(Integer KernelSize, Double CutOff, Integer WindowKind, TDoubleArray& Kernel);
/// Stops frequencies between the two cut-offs, which may stand in either order.
ZOR_API void CalcSincBSKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TVector* Kernel);
ZOR_API void CalcSincBSKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind,
                              TDoubleArray& Kernel);
/// Passes frequencies between the two cut-offs, which may stand in either order.
ZOR_API void CalcSincBPKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind, TVector* Kernel);
ZOR_API void CalcSincBPKernel(Integer KernelSize, Double CutOff1, Double CutOff2, Integer WindowKind,
                              TDoubleArray& Kernel);
/// @}

}  // namespace ZOR_math2

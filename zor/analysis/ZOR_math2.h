#pragma once

#include "zor/analysis/ZOR_math2_fwd.h"
#include "zor/analysis/chebyshev_filter.h"
#include "zor/analysis/class_scatter.h"
#include "zor/analysis/covariance.h"
#include "zor/analysis/curve_fit.h"
#include "zor/analysis/eigenvectors.h"
#include "zor/analysis/gauss_kernel.h"
#include "zor/analysis/kernel_filter.h"
#include "zor/analysis/least_squares.h"
#include "zor/analysis/math2_errors.h"
#include "zor/analysis/partial_least_squares.h"
#include "zor/analysis/penalized_spline.h"
#include "zor/analysis/ranks.h"
#include "zor/analysis/regression.h"
#include "zor/analysis/regression_models.h"
#include "zor/analysis/singular_values.h"
#include "zor/analysis/smoothing.h"
#include "zor/analysis/vertex_components.h"
#include "zor/base/ZOR_zorbase.h"

/// \file  Fits and analysis of data in vectors and matrices: smoothing, derivatives and digital filters, ranks.
/// Elements, columns and rows count from 1. Arguments are pointers to vectors and matrices that the caller owns;
/// results may be arguments too, and get their size here unless a routine says otherwise. Failures raise EZORMath2Error
/// with
/// "<Routine>: <text>", before anything is changed.
///
///     using namespace ZOR_math2;
///     TVector noisy, smooth;
///     noisy.SetNrOfElem(100);
///     noisy.FillSerial(0.0, 0.1);
///     smooth.Clone(&noisy);
///     PolynomialSmooth(&noisy, 0, 100, &smooth, 9);
///     std::cout << smooth.Elem(50) << '\n';             // 4.9: a line stays a line

#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/distributions/chi2_distribution.h"
#include "zor/distributions/critical_values.h"
#include "zor/distributions/discrete_distributions.h"
#include "zor/distributions/durbin_watson.h"
#include "zor/distributions/error_function.h"
#include "zor/distributions/f_distribution.h"
#include "zor/distributions/kolmogorov_smirnov.h"
#include "zor/distributions/measures.h"
#include "zor/distributions/normal_distribution.h"
#include "zor/distributions/rand_gen.h"
#include "zor/distributions/shapiro_wilk.h"
#include "zor/distributions/signif_levels.h"
#include "zor/distributions/special_functions.h"
#include "zor/distributions/statis_errors.h"
#include "zor/distributions/t_distribution.h"
#include "zor/distributions/u_distribution.h"
#include "zor/distributions/weibull_distribution.h"
#include "zor/statistics/ZOR_statis_fwd.h"

/// \file  Statistics: special functions, distributions and critical values.
/// Routines are free of state and may run on any thread. Integrals are lower tails; an upper tail has a function of its
/// own where 1 - F would lose its digits. Bad arguments give neutral values, named at each routine; only
/// FisherTransform and HyperGeoDistriDensity raise EZORStatisError, as "<Routine>: <text>". A NaN gives NaN or a
/// neutral value and never keeps a loop running.
///
///     using namespace ZOR_statis;
///     const double t = tDistriQuantile(0.975, 9);          // 2.26216: two-sided 5 % of ten values
///     std::cout << 2 * tDistriIntegral(-3.1, 9) << '\n';   // 0.0127: the significance of t = 3.1

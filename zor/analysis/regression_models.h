#pragma once

#include <array>

#include "zor/base/ZOR_zorbase.h"

/// \file  The models that TCurveFit fits, and its result codes.

namespace ZOR_math2 {

using namespace ZOR_zorbase;

/// Models, with the equation that Evaluate computes and the places of their parameters in ModelPar(1, i).
enum TRegModel : Byte {
  rmNone = 0,            ///< no model: 0
  rmLinear = 1,          ///< k0 + k1 x
  rmParabolic = 2,       ///< k0 + k1 x + k2 x^2
  rmGaussian = 3,        ///< k0 exp(-(x - k1)^2 / k2)
  rmReciLin = 4,         ///< 1 / (k0 + k1 x)
  rmHyperbolic = 5,      ///< k0 + k1 / x
  rmReciHyperbolic = 6,  ///< x / (k0 x + k1)
  rmLog = 7,             ///< k0 + k1 ln x
  rmReciLog = 8,         ///< 1 / (k0 + k1 ln x)
  rmPower = 9,           ///< k0 x^k1
  rmExpo = 10,           ///< k0 exp(k1 x)
  rmHoerl = 11,          ///< k0 k1^x x^k2
  rmCircle = 12,         ///< centre (k0, k1), radius k2; no y(x)
  rmPolynomial = 13,     ///< sum of k_i x^i
  rmCenteredPoly = 14,   ///< sum of k_i (x - CPXShift)^i
  rmLinearOrigin = 15    ///< k1 x
};

/// Fewest pairs that CalcRegModel and Predict ask for; -1 where the fit itself counts them.
inline constexpr std::array<Integer, 16> REG_MINDP = {0, 2, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, -1, -1, 2};
/// Names of the models.
inline constexpr std::array<const char16_t*, 16> IDS_REGMODEL = {
    u"rmNone",           u"rmLinear",     u"rmParabolic",    u"rmGaussian",    u"rmReciLin", u"rmHyperbolic",
    u"rmReciHyperbolic", u"rmLog",        u"rmReciLog",      u"rmPower",       u"rmExpo",    u"rmHoerl",
    u"rmCircle",         u"rmPolynomial", u"rmCenteredPoly", u"rmLinearOrigin"};

/// Results of CalcRegModel.
inline constexpr Integer kTooFewPairs = -1;
inline constexpr Integer kNoModel = -2;
/// Results of Predict.
inline constexpr Integer kBadProbability = -1;
inline constexpr Integer kTooFewPairsToPredict = -2;
inline constexpr Integer kNoModelToPredict = -3;

}  // namespace ZOR_math2

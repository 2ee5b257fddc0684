#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "zor/analysis/ZOR_math2_fwd.h"
#include "zor/analysis/curve_fit_sums.h"
#include "zor/analysis/math2_errors.h"
#include "zor/analysis/regression_models.h"
#include "zor/vectors/vector.h"

/// \file  The class TCurveFit: pairs (x, y), their statistics, and curves fitted to them.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_vector::TVector;

/// What some pair has made undefined.
enum TCurveFitError : Byte {
  cfeXLE0 = 0,  ///< An x that is 0 or less has no logarithm.
  cfeYLE0 = 1,  ///< A y that is 0 or less (of lnx_lny: 1e-30 or less) has no logarithm.
  cfeXEQ0 = 2,  ///< An x within 1e-30 of 0 has no reciprocal.
  cfeYEQ0 = 3   ///< A y within 1e-30 of 0 has no reciprocal.
};

/// Set of TCurveFitError, one bit each.
struct TCurveFitErrors {
  Byte bits = 0;
  constexpr bool contains(TCurveFitError e) const noexcept { return (bits >> e & 1) != 0; }
  constexpr void include(TCurveFitError e) noexcept { bits = static_cast<Byte>(bits | 1 << e); }
  constexpr bool empty() const noexcept { return bits == 0; }
  friend constexpr bool operator==(TCurveFitErrors, TCurveFitErrors) = default;
};

/// Collects pairs (x, y), numbered from 1, with running sums, and fits curves to them. n is the number of pairs.
///
/// A fit stores its parameters, which stay in force until EnterStatValue, Init, ClearModelParams or the next fit, also
/// one that fails. RemoveStatValue, FlipXY and ImportASC leave them, so that they may belong to other pairs than those
/// that are stored. Fits raise EZORMath2Error "<Routine>: not enough data points" and what is said at each; their
/// outputs are then 0 and no model is in force. One object may be used by one thread at a time; reading may fill
/// caches.
///
///     TCurveFit fit;
///     for (int x = 1; x <= 5; ++x) fit.EnterStatValue(x, 2.0 * x + 1.0);
///     double slope, offset, quality;
///     fit.CalcLinFit(slope, offset, quality);                 // 2, 1, 1
///     std::cout << fit.Evaluate(10.0) << '\n';                // 21
class ZOR_API TCurveFit : public TComponent {
 public:
  explicit TCurveFit(TComponent* AOwner = nullptr);
  ~TCurveFit() override = default;
  const char* ClassName() const noexcept override;

  /// \name Pairs
  /// @{
  /// Forgets all pairs and the model; the settings of the splines stay.
  void Init();
  /// Takes in a pair; returns the new n. The model is dropped. Throws EZORMath2Error "not enough memory" with nothing
  /// changed.
  Integer EnterStatValue(Double x, Double y);
  /// Takes in the pairs of two runs of equal length, or of two vectors; the longer one is cut. Returns the new n.
  Integer EnterStatValues(std::span<const Double> x, std::span<const Double> y);
  Integer EnterStatValues(const TVector* x, const TVector* y);
  /// Takes out pair ix; those behind it move up. MinX to MaxY, ErrIndic and the model stay as they were. The last bits
  /// of the sums of powers are restored. An ix outside: nothing.
  void RemoveStatValue(Integer ix);
  /// Exchanges x and y of all pairs. ErrIndic and the model stay.
  void FlipXY();
  Integer NumData() const noexcept { return zor::detail::to_integer(FX.size()); }
  /// The numbers of pair ix; 0.0 outside.
  Double GetDataX(Integer ix) const noexcept { return has(ix) ? FX[place(ix)] : 0.0; }
  Double GetDataY(Integer ix) const noexcept { return has(ix) ? FY[place(ix)] : 0.0; }
  Double DataX(Integer ix) const noexcept { return GetDataX(ix); }
  Double DataY(Integer ix) const noexcept { return GetDataY(ix); }
  /// All x, all y; valid until the next change.
  std::span<const Double> CellsX() const noexcept { return FX; }
  std::span<const Double> CellsY() const noexcept { return FY; }
  /// What the pairs entered since Init have made undefined; a removed pair leaves its mark.
  TCurveFitErrors ErrIndic() const noexcept { return FErrIndic; }
  /// @}

  /// \name Statistics
  /// Deviations and correlations are those of samples (n - 1), and 0.0 below three pairs; means are 0.0 without pairs.
  /// Sums have twice the precision; constant data have deviation and correlation 0.0.
  /// @{
  /// Extremes of all pairs entered since Init, removed ones included; the largest double and its negative at first.
  Double MinX() const noexcept { return FMinX; }
  Double MaxX() const noexcept { return FMaxX; }
  Double MinY() const noexcept { return FMinY; }
  Double MaxY() const noexcept { return FMaxY; }
  Double MeanX() const noexcept;
  Double MeanY() const noexcept;
  /// Mean and root of the mean square of x - y.
  Double MeanDiff() const noexcept;
  Double RMSDiff() const noexcept;
  Double StdDevX() const noexcept;
  Double StdDevY() const noexcept;
  Double StdDevDiff() const noexcept;
  /// Pearson's correlation coefficient.
  Double CorrCoeff() const noexcept;
  /// Skewness and excess kurtosis, corrected to a sample; 0.0 below four pairs.
  Double SkewnessX() const noexcept;
  Double SkewnessY() const noexcept;
  Double KurtosisX() const noexcept;
  Double KurtosisY() const noexcept;
  /// Direction of the mean vector of angles in degrees, 0 to 360; 0.0 if there is none.
  Double MeanAngleX() const noexcept;
  Double MeanAngleY() const noexcept;
  /// All of them at once; outputs without enough pairs are 0.
  void CalcStatistics(Integer& NumData, Double& MeanX, Double& MeanY, Double& StdevX, Double& StdevY, Double& MeanDiff,
                      Double& StdevDiff, Double& rxy) const noexcept;
  /// The value of rank Round(prob n / 100) from 0, at most n - 1; prob in per cent. 0.0 without pairs.
  Double PercentileX(Double prob) const;
  Double PercentileY(Double prob) const;
  /// Quartiles, interpolated at position (n + 1) p. False with zeros without pairs.
  Boolean QuartilesX(Double& q1, Double& q2, Double& q3) const;
  Boolean QuartilesY(Double& q1, Double& q2, Double& q3) const;
  /// @}

  /// \name Rank statistics
  /// @{
  /// Spearman's correlation of ranks, corrected for ties; 0.0 below three pairs and for constant data.
  Double SpearmanRankCorr() const;
  /// Kendall's tau-b and the two-sided p of its normal approximation, right to 1e-7. Both 0.0 where tau is undefined
  /// and below three pairs. M. G. Kendall, Biometrika 33 (1945), 239.
  Double KendallsTau(Double& p) const;
  /// Goodman and Kruskal's gamma, (C - D) / (C + D); 0.0 without any untied pair of pairs and below three pairs.
  Double KruskalGamma() const;
  /// @}

  /// \name Text files
  /// @{
  /// Writes an ASC text file with Precision decimals; an empty comment names the file. Empty, or the reason why the
  /// file could not be created; EInOutError if writing fails later.
  TString ExportAsASC(const TString& FName, const TString& Comment, Integer Precision) const;
  /// Takes the place of the stored pairs by those of an ASC text file and adds them to the sums of the earlier ones:
  /// call Init first for the file's pairs alone. 0, a code of ReadHeaderOfASC, or -7 for nominal variables. Raises
  /// EZORMath2Error "TCurveFit.ImportASC: number of columns must be 2 (is actually <n>).", EInOutError for a cell or a
  /// row attribute that is no number and for missing rows; nothing is changed then.
  Integer ImportASC(const TString& FName);
  /// @}

  /// \name The model in force
  /// @{
  TRegModel RegModel() const noexcept { return FRegMod; }
  void ClearModelParams() noexcept;
  /// ix = 1: parameter k_iy; ix = 2: its two-sided significance, for polynomials, else -1.0. iy is 0 to 10. Without a
  /// model, or for another iy: 0.0 and -1.0; -1.0 for another ix.
  Double GetModelPar(Integer ix, Integer iy) const noexcept;
  Double ModelPar(Integer ix, Integer iy) const noexcept { return GetModelPar(ix, iy); }
  /// R squared of the last fit, for transformed models that of the transformed y; 0.0 without a model and for a circle.
  Double FitQual() const noexcept { return FRegMod == rmNone ? 0.0 : FModR2; }
  Integer PolyOrder() const noexcept { return FPolyOrder; }
  Double CPXShift() const noexcept { return FRegMod == rmCenteredPoly ? FXShift : 0.0; }
  /// y - model(x) of pair ix, as CalcRegModel left it; 0.0 outside.
  Double GetResidual(Integer ix) const noexcept;
  Double Residual(Integer ix) const noexcept { return GetResidual(ix); }
  /// All residuals as a vector: an array of length 0 before CalcRegModel.
  TDoubleArray Residuals() const;
  /// Their standard deviation (n - 1); 0.0 before CalcRegModel.
  Double StdDevResid() const noexcept;
  /// The model at a place; EvaluateIntern takes the equation of another model with the parameters in force. Where it is
  /// undefined, and where the result is not finite, uc_MaxDouble with the sign of the limit; 0.0 for rmNone, rmCircle.
  Double Evaluate(Double XVal) const noexcept { return EvaluateIntern(FRegMod, XVal); }
  Double EvaluateIntern(TRegModel RegModel, Double x) const noexcept;
  /// Fits a model, unless it is in force already (of a polynomial: with this order), and its residuals. 0,
  /// kTooFewPairs, kNoModel; what the fit raises passes. rmCircle and rmLinearOrigin are not fitted here: call their
  /// fits before.
  Integer CalcRegModel(TRegModel RegModel, Integer PolyOrder);
  /// Fits as CalcRegModel, then gives the value at XVal and the half widths of the prediction and the confidence
  /// interval of level p, 0.5 <= p < 1, with n - 2 degrees of freedom. Both are uc_MaxDouble with fewer than three
  /// pairs, or if all x are equal and XVal is another. 0, or the last of kBadProbability, kTooFewPairsToPredict,
  /// kNoModelToPredict; a code of CalcRegModel.
  Integer Predict(TRegModel RegModel, Double XVal, Double p, Integer PolyOrder, Double& PredVal, Double& PredIv,
                  Double& ConfIv);
  /// Analysis of variance of pairs (observed, estimated) by a model with NumVars variables. A mean square without
  /// degrees of freedom is 0; F is 1e10 for MSE = 0 < MSR, 0 without degrees of freedom.
  void CalcAnovaReg(Integer NumVars, Boolean IncludeConst, Integer& dfreg, Integer& dfres, Integer& dftotal,
                    Double& SSE, Double& SSR, Double& SST, Double& MSE, Double& MSR, Double& F) const noexcept;
  /// @}

  /// \name Fits
  /// @{
  /// y = k x + d. "slope is infinite" if all x are equal. FitQual is 1 for constant y.
  void CalcLinFit(Double& k, Double& d, Double& FitQual);
  /// y = k x. FitQual = 1 - SSE / sum y^2. "slope is infinite" if all x are 0, "slope is undefined" if all y are 0.
  void CalcLinFitThroughOrigin(Double& k, Double& FitQual);
  /// With two distinct x the straight line, with one the mean of y.
  void CalcParabolFit(Double& k0, Double& k1, Double& k2, Double& FitQual);
  /// Algebraic least squares (I. Kasa, IEEE Trans. Instrum. Meas. 25 (1976), 8) from sums of powers: with the centre at
  /// a distance of 1e4 for a radius of 5 the radius errs by 1e-3. "radius is infinite" for collinear pairs.
  void CalcCircleFit(Double& r, Double& dx, Double& dy);
  /// The models that are straight lines in 1/x, ln x, 1/y or ln y (a parabola in ln y for the Gaussian), fitted by
  /// least squares of these. "x values must be greater than 0", "y values must be greater than 0", "x values must not
  /// be 0", "y values must not be 0" for stored pairs whose terms are undefined; "slope is infinite" ("width is
  /// infinite") without enough distinct x; "numeric overflow".
  void CalcGaussFit(Double& k0, Double& k1, Double& k2, Double& FitQual);
  void CalcHoerlFit(Double& k0, Double& k1, Double& k2, Double& FitQual);
  void CalcReciLinFit(Double& k0, Double& k1, Double& FitQual);
  void CalcHyperbolFit(Double& k0, Double& k1, Double& FitQual);
  void CalcReciHyperbolFit(Double& k0, Double& k1, Double& FitQual);
  void CalcLogFit(Double& k0, Double& k1, Double& FitQual);
  void CalcReciLogFit(Double& k0, Double& k1, Double& FitQual);
  void CalcPowerFit(Double& k0, Double& k1, Double& FitQual);
  void CalcExponentialFit(Double& k0, Double& k1, Double& FitQual);
  /// Polynomial of order nOrder, 0 to 10, by MultiLinReg, which can be stopped by AbortMathProc (cleared first).
  /// kArray[i] gets the coefficient of x^i, Alpha[i] its two-sided significance, 0.0 where no residual is left; FitQual
  /// is the squared correlation of y and the model. "invalid order of polynomial", "not enough data points" (n <=
  /// nOrder). True; after an abort the coefficients are 0.
  Boolean CalcPolyFit(Integer nOrder, TDoubleArray& kArray, TDoubleArray& Alpha, Double& FitQual,
                      Boolean& NearSingular);
  Boolean CalcPolyFit(Integer nOrder, TDoubleArray& kArray, Double& FitQual, Boolean& NearSingular);
  /// The same in powers of x - XShift, scaled by the deviation of x: many more digits. XShift 0 becomes the mean of x.
  /// The result of MultiLinReg.
  Boolean CalcCenteredPolyFit(Integer nOrder, TDoubleArray& kArray, TDoubleArray& alpha, Double& XShift,
                              Double& FitQual, Boolean& NearSingular);
  Boolean CalcCenteredPolyFit(Integer nOrder, TDoubleArray& kArray, Double& XShift, Double& FitQual,
                              Boolean& NearSingular);
  /// @}

  /// \name Splines
  /// @{
  /// Ends with second derivative 0, or with the slopes given; in the order of rising x.
  Boolean SplineNatural1() const noexcept { return FNatural1; }
  Boolean SplineNaturalN() const noexcept { return FNaturalN; }
  Double SplineDerivY1() const noexcept { return FY1Dash; }
  Double SplineDerivYN() const noexcept { return FYNDash; }
  Double SplineSmoothingFactor() const noexcept { return FPSplineSmooth; }
  void SetSplineNatural1(Boolean v) noexcept { SetNatural1(v); }
  void SetSplineNaturalN(Boolean v) noexcept { SetNaturalN(v); }
  void SetSplineDerivY1(Double v) noexcept { SetY1Dash(v); }
  void SetSplineDerivYN(Double v) noexcept { SetYNDash(v); }
  void SetSplineSmoothingFactor(Double v) noexcept { SetSplineSmoothing(v); }
  void SetNatural1(Boolean v) noexcept;
  void SetNaturalN(Boolean v) noexcept;
  void SetY1Dash(Double v) noexcept;
  void SetYNDash(Double v) noexcept;
  void SetSplineSmoothing(Double v) noexcept;
  /// The interpolating cubic spline at x; pairs of equal x count as one with their mean y. Outside the x a straight
  /// line. 0.0 without pairs, the mean of y with one distinct x.
  Double CubicSpline(Double x) const;
  /// The smoothing spline at x: least sum of w (y - g)^2 + SplineSmoothingFactor times the integral of g''^2. 0
  /// interpolates, infinity gives the straight line of least squares. FitQual = 1 - SSE / SST. valid: at least two
  /// distinct x and a factor of 0 or more; else the mean of y.
  Double SmoothedSpline(Double x, Double& FitQual, Boolean& valid) const;
  /// @}

 private:
  struct Rank {
    Int64 concordant = 0, discordant = 0, ties_x = 0, ties_y = 0;
    bool valid = false;
  };
  /// A piecewise cubic through or near the points x in rising order.
  struct Spline {
    std::vector<Double> x, a, b, c, d;
    Double fit_qual = 0.0;
    bool valid = false;
    Double at(Double place) const noexcept;
  };

  bool has(Integer ix) const noexcept { return ix >= 1 && ix <= NumData(); }
  static std::size_t place(Integer ix) noexcept { return static_cast<std::size_t>(ix - 1); }
  void adjust_sums(Double x, Double y) noexcept;
  void data_changed() noexcept;
  bool constant(const std::vector<Double>& cells, Double lo, Double hi) const noexcept;
  Double deviation(const zor::detail::TwofoldSum& squares, const zor::detail::TwofoldSum& sum) const noexcept;
  void count_ranks() const;
  void set_model(TRegModel model, std::initializer_list<Double> parameters, Double quality) noexcept;
  [[noreturn]] void fail_fit(std::string_view message);
  void fit_model(TRegModel RegModel, Integer PolyOrder);
  struct PolynomialTask;
  Boolean fit_polynomial(PolynomialTask& task, TDoubleArray& kArray, TDoubleArray& Alpha, Double& FitQual,
                         Boolean& NearSingular);
  void merged_points(Spline& to, std::vector<Double>& y, std::vector<Double>& weights) const;

  std::vector<Double> FX, FY;
  zor::detail::CurveFitSums sums_;
  Double FMinX = 0, FMaxX = 0, FMinY = 0, FMaxY = 0;
  TCurveFitErrors FErrIndic;
  bool removed_ = false;  // a pair was taken out: extremes may lie outside the data
  mutable Rank ranks_;
  Boolean FNatural1 = true, FNaturalN = true;
  Double FY1Dash = 0.0, FYNDash = 0.0, FPSplineSmooth = 0.5;
  mutable Spline cubic_, smoothed_;
  TRegModel FRegMod = rmNone;
  Integer FPolyOrder = 0;
  Double FModPars[2][11];
  TDoubleArray FResids;
  Double FModR2 = 0.0, FXShift = 0.0;
};

/// The model with its parameters, their significances where there are any, R squared and the standard error.
ZOR_API std::ostream& operator<<(std::ostream& out, const TCurveFit& fit);

}  // namespace ZOR_math2

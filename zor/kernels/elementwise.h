#pragma once

#include <cstdint>
#include <span>

#include "zor/export.h"

/// \file  Arithmetic cell by cell.
/// Every span of a call has the length of the output (the first span of the in-place forms). An output may be one of
/// the inputs, cell for cell; spans that overlap with a shift are not allowed. Doubles are rounded as the formula is
/// written, one rounding for each operation, never fused. Integers wrap around at 32 bits.

namespace zor::kernels {

/// x[i] = value.
ZOR_API void fill(std::span<double> x, double value) noexcept;
ZOR_API void fill(std::span<std::int32_t> x, std::int32_t value) noexcept;

/// x[0] = start, x[i] = x[i - 1] + step: repeated addition with its rounding, not start + i * step.
ZOR_API void fill_serial(std::span<double> x, double start, double step) noexcept;
ZOR_API void fill_serial(std::span<std::int32_t> x, std::int32_t start, std::int32_t step) noexcept;

/// x[i] += y[i], or out[i] = x[i] + y[i].
ZOR_API void add(std::span<double> x, std::span<const double> y) noexcept;
ZOR_API void add(std::span<std::int32_t> x, std::span<const std::int32_t> y) noexcept;
ZOR_API void add(std::span<const double> x, std::span<const double> y, std::span<double> out) noexcept;
ZOR_API void add(std::span<const std::int32_t> x, std::span<const std::int32_t> y,
                 std::span<std::int32_t> out) noexcept;

/// x[i] -= y[i], or out[i] = x[i] - y[i].
ZOR_API void subtract(std::span<double> x, std::span<const double> y) noexcept;
ZOR_API void subtract(std::span<std::int32_t> x, std::span<const std::int32_t> y) noexcept;
ZOR_API void subtract(std::span<const double> x, std::span<const double> y, std::span<double> out) noexcept;
ZOR_API void subtract(std::span<const std::int32_t> x, std::span<const std::int32_t> y,
                      std::span<std::int32_t> out) noexcept;

/// x[i] *= y[i], or out[i] = x[i] * y[i].
ZOR_API void multiply(std::span<double> x, std::span<const double> y) noexcept;
ZOR_API void multiply(std::span<std::int32_t> x, std::span<const std::int32_t> y) noexcept;
ZOR_API void multiply(std::span<const double> x, std::span<const double> y, std::span<double> out) noexcept;
ZOR_API void multiply(std::span<const std::int32_t> x, std::span<const std::int32_t> y,
                      std::span<std::int32_t> out) noexcept;

/// x[i] *= a, or out[i] = x[i] * a.
ZOR_API void scale(std::span<double> x, double a) noexcept;
ZOR_API void scale(std::span<std::int32_t> x, std::int32_t a) noexcept;
ZOR_API void scale(std::span<const double> x, double a, std::span<double> out) noexcept;
ZOR_API void scale(std::span<const std::int32_t> x, std::int32_t a, std::span<std::int32_t> out) noexcept;

/// x[i] += a, or out[i] = x[i] + a. (x - a is x + (-a), bit for bit.)
ZOR_API void shift(std::span<double> x, double a) noexcept;
ZOR_API void shift(std::span<std::int32_t> x, std::int32_t a) noexcept;
ZOR_API void shift(std::span<const double> x, double a, std::span<double> out) noexcept;
ZOR_API void shift(std::span<const std::int32_t> x, std::int32_t a, std::span<std::int32_t> out) noexcept;

/// x[i] = |x[i]|, or out[i] = |x[i]|. Clears the sign, also that of a zero or NaN; the smallest integer stays.
ZOR_API void absolute(std::span<double> x) noexcept;
ZOR_API void absolute(std::span<std::int32_t> x) noexcept;
ZOR_API void absolute(std::span<const double> x, std::span<double> out) noexcept;
ZOR_API void absolute(std::span<const std::int32_t> x, std::span<std::int32_t> out) noexcept;

/// out[i] = x[i] rounded to a whole number, ties to even; what is beyond a 32-bit integer gives the nearest one, NaN 0.
ZOR_API void round_to_integers(std::span<const double> x, std::span<std::int32_t> out) noexcept;

/// y[i] += a * x[i], product and sum rounded apart.
ZOR_API void axpy(double a, std::span<const double> x, std::span<double> y) noexcept;

/// x[i] = (x[i] - a) / b, a true division, or out[i] = (x[i] - a) / b.
ZOR_API void shift_scale(std::span<double> x, double a, double b) noexcept;
ZOR_API void shift_scale(std::span<const double> x, double a, double b, std::span<double> out) noexcept;

}  // namespace zor::kernels

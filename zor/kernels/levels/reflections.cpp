#include "zor/kernels/levels/reflections.h"

#include "zor/kernels/levels/level.h"

namespace zor::kernels::ZOR_LEVEL {
namespace {

/// Partial sums of a dot product, and the registers that hold them.
constexpr std::size_t kSums = 8;
constexpr std::size_t kSumRegisters = kSums / kLanesD;
/// Registers of rows that are carried along a chain of columns.
constexpr std::size_t kWide = 4;
constexpr std::size_t kWideRows = kWide * kLanesD;

/// Total of the partial sums after the rest of the terms, fewer than kSums of them, is added.
struct Sums {
  alignas(ZOR_VECTOR_BYTES) VecD part[kSumRegisters] = {};

  void add(const double* x, const double* y) {
    for (std::size_t k = 0; k < kSumRegisters; ++k) part[k] += load(x + k * kLanesD) * load(y + k * kLanesD);
  }
  double total(const double* x, const double* y, std::size_t rest) const {
    double s[kSums];
    for (std::size_t k = 0; k < kSumRegisters; ++k) store(s + k * kLanesD, part[k]);
    for (std::size_t i = 0; i < rest; ++i) s[i] += x[i] * y[i];
    return ((s[0] + s[4]) + (s[2] + s[6])) + ((s[1] + s[5]) + (s[3] + s[7]));
  }
};

double dot(const double* x, const double* y, std::size_t n) {
  Sums sums;
  std::size_t i = 0;
  for (; i + kSums <= n; i += kSums) sums.add(x + i, y + i);
  return sums.total(x + i, y + i, n - i);
}

std::uint64_t largest(const double* x, std::size_t n) {
  constexpr std::size_t kStep = 2 * kLanesD;
  VecL even = {}, odd = {};
  const auto larger = [](VecL m, const double* at) {
    const VecL bits = *reinterpret_cast<const VecL*>(at) & INT64_MAX;
    return bits > m ? bits : m;
  };
  std::size_t i = 0;
  for (; i + kStep <= n; i += kStep) {
    even = larger(even, x + i);
    odd = larger(odd, x + i + kLanesD);
  }
  std::int64_t found = 0;
  const auto take = [&](std::int64_t bits) { found = bits > found ? bits : found; };
  for (std::size_t k = 0; k < kLanesD; ++k) take(even[k]), take(odd[k]);
  for (; i < n; ++i) {
    std::int64_t bits;
    __builtin_memcpy(&bits, x + i, sizeof bits);
    take(bits & INT64_MAX);
  }
  return static_cast<std::uint64_t>(found);
}

/// a -= f v.
inline void subtract(double* a, double f, const double* v, std::size_t n) {
  std::size_t i = 0;
  for (; i + kLanesD <= n; i += kLanesD) store(a + i, load(a + i) - f * load(v + i));
  for (; i < n; ++i) a[i] -= f * v[i];
}

/// The columns of a group share the loads of v.
template <std::size_t group>
inline void reflect_group(const double* v, double tau, double* const* a, std::size_t row, std::size_t rows) {
  Sums sums[group];
  double* column[group];
  for (std::size_t j = 0; j < group; ++j) column[j] = a[j] + row;
  std::size_t i = 0;
  for (; i + kSums <= rows; i += kSums)
    for (std::size_t j = 0; j < group; ++j) sums[j].add(v + i, column[j] + i);
  for (std::size_t j = 0; j < group; ++j) {
    const double f = tau * sums[j].total(v + i, column[j] + i, rows - i);
    subtract(column[j], f, v, rows);
  }
}

void from_left(const double* v, double tau, double* const* a, std::size_t cols, std::size_t row, std::size_t rows) {
  std::size_t j = 0;
  for (; j + 4 <= cols; j += 4) reflect_group<4>(v, tau, a + j, row, rows);
  for (; j < cols; ++j) reflect_group<1>(v, tau, a + j, row, rows);
}

/// Calls wide(row) for blocks of kWideRows rows, single(row) for blocks of one register, cell(row) for the rest.
template <class Wide, class Single, class One>
inline void for_row_blocks(std::size_t row, std::size_t rows, Wide wide, Single single, One cell) {
  const std::size_t end = row + rows;
  for (; row + kWideRows <= end; row += kWideRows) wide(row);
  for (; row + kLanesD <= end; row += kLanesD) single(row);
  for (; row < end; ++row) cell(row);
}

/// `width` registers of rows.
template <std::size_t width>
struct Rows {
  alignas(ZOR_VECTOR_BYTES) VecD part[width];

  static Rows zero() { return {}; }
  static Rows at(const double* x) {
    Rows rows;
    for (std::size_t k = 0; k < width; ++k) rows.part[k] = load(x + k * kLanesD);
    return rows;
  }
  void to(double* x) const {
    for (std::size_t k = 0; k < width; ++k) store(x + k * kLanesD, part[k]);
  }
  friend Rows operator+(Rows a, Rows b) {
    for (std::size_t k = 0; k < width; ++k) a.part[k] += b.part[k];
    return a;
  }
  friend Rows operator-(Rows a, Rows b) {
    for (std::size_t k = 0; k < width; ++k) a.part[k] -= b.part[k];
    return a;
  }
  friend Rows operator*(double f, Rows a) {
    for (std::size_t k = 0; k < width; ++k) a.part[k] = f * a.part[k];
    return a;
  }
};
/// One row.
template <>
struct Rows<0> {
  double cell;

  static Rows zero() { return {0.0}; }
  static Rows at(const double* x) { return {*x}; }
  void to(double* x) const { *x = cell; }
  friend Rows operator+(Rows a, Rows b) { return {a.cell + b.cell}; }
  friend Rows operator-(Rows a, Rows b) { return {a.cell - b.cell}; }
  friend Rows operator*(double f, Rows a) { return {f * a.cell}; }
};

template <class Block>
inline Block combination(const double* const* a, const double* u, std::size_t cols, std::size_t row) {
  Block sum = Block::zero();
  for (std::size_t j = 0; j < cols; ++j) sum = sum + u[j] * Block::at(a[j] + row);
  return sum;
}

template <class Block>
inline void reflect_rows(const double* u, double tau, double* const* a, std::size_t cols, std::size_t row) {
  const Block s = tau * combination<Block>(a, u, cols, row);
  for (std::size_t j = 0; j < cols; ++j) (Block::at(a[j] + row) - u[j] * s).to(a[j] + row);
}

void from_right(const double* u, double tau, double* const* a, std::size_t cols, std::size_t row, std::size_t rows) {
  for_row_blocks(
      row, rows, [=](std::size_t r) { reflect_rows<Rows<kWide>>(u, tau, a, cols, r); },
      [=](std::size_t r) { reflect_rows<Rows<1>>(u, tau, a, cols, r); },
      [=](std::size_t r) { reflect_rows<Rows<0>>(u, tau, a, cols, r); });
}

void combine(const double* const* a, const double* u, std::size_t cols, std::size_t row, std::size_t rows,
             double* out) {
  for_row_blocks(
      row, rows, [=](std::size_t r) { combination<Rows<kWide>>(a, u, cols, r).to(out + r - row); },
      [=](std::size_t r) { combination<Rows<1>>(a, u, cols, r).to(out + r - row); },
      [=](std::size_t r) { combination<Rows<0>>(a, u, cols, r).to(out + r - row); });
}

void update_multiply(double* a, const double* v, const double* w, const double* x, double* p, std::size_t n) {
  const double v0 = v[0], w0 = w[0], x0 = x[0];
  a[0] -= v0 * w0 + w0 * v0;
  Sums sums;
  std::size_t i = 1;
  for (; i + kSums <= n; i += kSums) {
    for (std::size_t k = 0; k < kSumRegisters; ++k) {
      const std::size_t at = i + k * kLanesD;
      const VecD cells = load(a + at) - (load(v + at) * w0 + load(w + at) * v0);
      store(a + at, cells);
      store(p + at, load(p + at) + cells * x0);
      sums.part[k] += cells * load(x + at);
    }
  }
  for (std::size_t r = i; r < n; ++r) {
    a[r] -= v[r] * w0 + w[r] * v0;
    p[r] += a[r] * x0;
  }
  p[0] += a[0] * x0 + sums.total(a + i, x + i, n - i);
}

template <class Block>
inline void rotate_rows(double* const* z, std::ptrdiff_t step, std::size_t count, const double* c, const double* s,
                        std::size_t row) {
  Block carried = Block::at(*z + row);
  for (std::size_t i = 0; i < count; ++i) {
    double* const here = *z + row;
    z += step;
    const Block next = Block::at(*z + row);
    (c[i] * carried + s[i] * next).to(here);
    carried = c[i] * next - s[i] * carried;
  }
  carried.to(*z + row);
}

void rotate(double* const* z, std::ptrdiff_t step, std::size_t count, const double* c, const double* s, std::size_t row,
            std::size_t rows) {
  for_row_blocks(
      row, rows, [=](std::size_t r) { rotate_rows<Rows<kWide>>(z, step, count, c, s, r); },
      [=](std::size_t r) { rotate_rows<Rows<1>>(z, step, count, c, s, r); },
      [=](std::size_t r) { rotate_rows<Rows<0>>(z, step, count, c, s, r); });
}

}  // namespace

extern const ReflectionsTable kReflections = {dot, largest, from_left, from_right, combine, update_multiply, rotate};

}  // namespace zor::kernels::ZOR_LEVEL

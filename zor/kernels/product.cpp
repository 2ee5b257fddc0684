#include "zor/kernels/product.h"

#include <algorithm>
#include <atomic>

#include "zor/portable_kernels.h"

namespace zor {
namespace {
std::atomic<bool> portable{false};
}

void use_portable_kernels(bool chosen) noexcept { portable.store(chosen, std::memory_order_relaxed); }
bool uses_portable_kernels() noexcept { return portable.load(std::memory_order_relaxed); }

}  // namespace zor

namespace zor::kernels {

void multiply(const double* const* a, Form form_a, const double* const* b, Form form_b, double* const* c,
              std::size_t rows, std::size_t columns, std::size_t depth) {
  for (std::size_t j = 0; j < columns; ++j) {
    std::fill_n(c[j], rows, 0.0);
    for (std::size_t k = 0; k < depth; ++k) {
      const double factor = form_b == Form::plain ? b[j][k] : b[k][j];
      for (std::size_t i = 0; i < rows; ++i) c[j][i] += (form_a == Form::plain ? a[k][i] : a[i][k]) * factor;
    }
  }
}

void subtract_product(const double* const* a, const double* const* b, double* const* c, std::size_t rows,
                      std::size_t columns, std::size_t depth) {
  for (std::size_t j = 0; j < columns; ++j)
    for (std::size_t k = 0; k < depth; ++k)
      for (std::size_t i = 0; i < rows; ++i) c[j][i] -= a[k][i] * b[j][k];
}

void gram(const double* const* a, std::size_t rows, std::size_t columns, std::size_t first, std::size_t last,
          double* const* c) {
  multiply(a + first, Form::transposed, a + first, Form::plain, c, last - first, columns - first, rows);
}

}  // namespace zor::kernels

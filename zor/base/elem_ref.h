#pragma once

#include <concepts>
#include <tuple>
#include <type_traits>

#include "zor/runtime/numbers.h"

/// \file  The cell of a container on the left of an assignment.

namespace ZOR_zorbase {

/// Stands for one cell of a container: reads through GetVal, writes through SetVal, so the rules for bad indices and
/// the events hold. Assigning one such reference to another copies the value. `auto x = v.Elem(1)` keeps the reference,
/// not the value; read with GetVal, or name the type.
///
/// A float cell assigned to an integer one is rounded, ties to even, and limited to the range, NaN giving 0. Sums,
/// differences and products of integer cells wrap.
template <class Container, class Value, class... Index>
class TElemRef {
 public:
  TElemRef(Container& container, Index... index) noexcept : container_(container), index_(index...) {}
  TElemRef(const TElemRef&) = default;

  operator Value() const {
    return std::apply([this](Index... index) { return container_.GetVal(index...); }, index_);
  }
  TElemRef& operator=(Value value) {
    std::apply([&](Index... index) { container_.SetVal(index..., value); }, index_);
    return *this;
  }
  TElemRef& operator=(const TElemRef& other) { return *this = static_cast<Value>(other); }
  template <class C, class V, class... I>
  TElemRef& operator=(const TElemRef<C, V, I...>& other) {
    return *this = zor::detail::to_cell<Value>(static_cast<V>(other));
  }
  TElemRef& operator+=(Value value) { return *this = static_cast<Value>(wide() + value); }
  TElemRef& operator-=(Value value) { return *this = static_cast<Value>(wide() - value); }
  TElemRef& operator*=(Value value) { return *this = static_cast<Value>(wide() * value); }
  TElemRef& operator/=(Value value) { return *this = static_cast<Value>(wide() / value); }

 private:
  using Wide = std::conditional_t<std::integral<Value>, ZOR_runtime::Int64, Value>;
  Wide wide() const { return static_cast<Value>(*this); }

  Container& container_;
  std::tuple<Index...> index_;
};

}  // namespace ZOR_zorbase

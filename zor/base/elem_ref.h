#pragma once

#include <tuple>

/// \file  The cell of a container on the left of an assignment.

namespace ZOR_zorbase {

/// Stands for one cell of a container: reads through GetVal, writes through SetVal, so the rules for bad indices and
/// the events hold. Assigning one such reference to another copies the value. `auto x = v.Elem(1)` keeps the reference,
/// not the value; read with GetVal, or name the type.
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
    return *this = static_cast<Value>(static_cast<V>(other));
  }
  TElemRef& operator+=(Value value) { return *this = static_cast<Value>(static_cast<Value>(*this) + value); }
  TElemRef& operator-=(Value value) { return *this = static_cast<Value>(static_cast<Value>(*this) - value); }
  TElemRef& operator*=(Value value) { return *this = static_cast<Value>(static_cast<Value>(*this) * value); }
  TElemRef& operator/=(Value value) { return *this = static_cast<Value>(static_cast<Value>(*this) / value); }

 private:
  Container& container_;
  std::tuple<Index...> index_;
};

}  // namespace ZOR_zorbase

#pragma once

#include <exception>
#include <span>

/// \file  Writing the cells of a container as raw memory, told with one event.

namespace ZOR_zorbase {

/// Gives a writable span of cells of a container, and calls Changed once when the scope ends. The container must not be
/// resized meanwhile. An exception of the handler leaves the scope, unless another one is already under way.
///
///     { auto edit = vec.Edit();  std::ranges::sort(edit.cells()); }   // OnChange fires here
template <class Container, class Value>
class EditScope {
 public:
  EditScope(Container& container, std::span<Value> cells) noexcept : container_(container), cells_(cells) {}
  EditScope(const EditScope&) = delete;
  EditScope& operator=(const EditScope&) = delete;
  ~EditScope() noexcept(false) {
    if (std::uncaught_exceptions() == under_way_) {
      container_.Changed();
      return;
    }
    try {
      container_.Changed();
    } catch (...) {  // a second exception during unwinding would end the program
    }
  }

  std::span<Value> cells() const noexcept { return cells_; }
  auto begin() const noexcept { return cells_.begin(); }
  auto end() const noexcept { return cells_.end(); }
  Value& operator[](std::size_t i) const noexcept { return cells_[i]; }

 private:
  Container& container_;
  std::span<Value> cells_;
  int under_way_ = std::uncaught_exceptions();
};

}  // namespace ZOR_zorbase

#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

/// \file  Events: places where an object calls back into the application.

namespace ZOR_runtime {

/// Holder of one handler. Assign a callable or nullptr; calling an unset event does nothing. The handler is held while
/// it runs, so it may replace or clear the very event that called it. Copies share the handler, and two events are
/// equal when they hold the same one, or none.
///
///     vec.OnChange = [&](TObject*) { ++changes; };
///     other.OnChange = vec.OnChange;   // the same handler
///     vec.OnChange = nullptr;
template <class... Args>
class TEvent {
 public:
  TEvent() noexcept = default;
  TEvent(std::nullptr_t) noexcept {}
  template <class F>
    requires(!std::same_as<std::remove_cvref_t<F>, TEvent> && std::is_invocable_v<std::decay_t<F>&, Args...>)
  TEvent(F&& handler) {
    std::function<void(Args...)> held(std::forward<F>(handler));  // empty if given a null pointer
    if (held) handler_ = std::make_shared<const std::function<void(Args...)>>(std::move(held));
  }

  explicit operator bool() const noexcept { return handler_ != nullptr; }

  void operator()(Args... args) const {
    if (!handler_) return;
    const auto keep = handler_;
    (*keep)(std::forward<Args>(args)...);
  }

  friend bool operator==(const TEvent&, const TEvent&) noexcept = default;
  friend bool operator==(const TEvent& event, std::nullptr_t) noexcept { return !event; }

 private:
  std::shared_ptr<const std::function<void(Args...)>> handler_;
};

}  // namespace ZOR_runtime

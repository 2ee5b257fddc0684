#pragma once

#include <string>

namespace zor::test {

/// Message of the exception of type E that an action throws; empty if it throws none.
template <class E, class Action>
std::string message_of(Action action) {
  try {
    action();
  } catch (const E& error) {
    return error.what();
  }
  return {};
}

}  // namespace zor::test

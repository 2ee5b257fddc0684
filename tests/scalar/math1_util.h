#pragma once

#include <gtest/gtest.h>

#include <string>

namespace ZOR_math1 {

/// Message of the exception of type E that an action throws; empty if none.
template <class E, class Action>
std::string message_of(Action action) {
  try {
    action();
  } catch (const E& error) {
    return error.what();
  }
  return {};
}

}  // namespace ZOR_math1

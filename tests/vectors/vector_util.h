#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/message_of.h"
#include "zor/vectors/ZOR_vector.h"

namespace ZOR_vector {

template <class V>
void set(V& vec, std::initializer_list<typename V::value_type> values) {
  vec.SetNrOfElem(static_cast<Integer>(values.size()));
  Integer i = 1;
  for (const auto x : values) vec.SetVal(i++, x);
}

template <class V>
std::vector<typename V::value_type> values_of(const V& vec) {
  return {vec.begin(), vec.end()};
}

/// Writes down the notifications of a vector: C for OnChange, R for OnResize, S for an exchange.
template <class V>
struct Listener {
  explicit Listener(V& vec) {
    vec.OnChange = [this](TObject*) { told += 'C'; };
    vec.OnResize = [this](TObject*) { told += 'R'; };
    vec.OnSortExchange = [this](TObject*, Byte, Integer, Integer, Integer, Integer) { told += 'S'; };
  }
  std::string take() { return std::exchange(told, ""); }
  std::string told;
};

using zor::test::message_of;

template <class V>
class Twins : public ::testing::Test {};
using TwinTypes = ::testing::Types<TVector, TIntVector>;

}  // namespace ZOR_vector

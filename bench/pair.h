#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// \file  Benchmarks in pairs: our function and a peer, in one process, on the same data.
/// A pair names four callables and, in a chain behind them, what stands in the report:
///
///     struct Cells { std::vector<double> x; };
///     Cells cells(std::size_t n) { return {zor::bench::noise(n)}; }              // same data at every call
///     ZOR_BENCH_PAIR(Sum, cells,
///                    [](Cells& c) { return kernels::sum_in_order(c.x); },         // ours
///                    [](Cells& c) { return std::accumulate(c.x.begin(), c.x.end(), 0.0); },   // the peer
///                    zor::bench::equal)                                           // proof: same(ours, peer)
///         .against("plain loop").goal(1.0).sizes({1000, 1'000'000}).remark("one chain of additions");
///
/// Both return their result, or a reference to the cells that they wrote; the results are copied and compared before
/// the pair is timed, and a wrong one ends the program. Where fetching the result costs time, return a function that
/// fetches it: only the comparison calls it. Where the work destroys its data, give the data a member `reset()`: it
/// runs before each call and is not timed (use it for work above some microseconds only).
/// Without a peer: ZOR_BENCH_RATE(Name, make, ours). Times are processor times of the thread, medians of at least five
/// repetitions in random order; `.wall()` takes the time of the clock, for work in several threads.

namespace zor::bench {

using Run = std::function<void(benchmark::State&, std::size_t)>;

/// One row of the report for each size.
class Pair {
 public:
  using Proof = std::function<void(std::size_t)>;
  Pair(std::string name, Run ours, Run peer, Proof prove)
      : name_(std::move(name)), ours_(std::move(ours)), peer_(std::move(peer)), prove_(std::move(prove)) {}

  /// Name of the peer, with what the reader must know of its build.
  Pair& against(std::string peer) { return peer_name_ = std::move(peer), *this; }
  /// Highest ratio of the times, ours / peer.
  Pair& goal(double ratio) { return goal_ = ratio, *this; }
  Pair& sizes(std::vector<std::size_t> sizes) { return sizes_ = std::move(sizes), *this; }
  /// Remark for the report, for instance why a goal is missed.
  Pair& remark(std::string text) { return remark_ = std::move(text), *this; }
  /// Items of one call at size n, if not n.
  Pair& items(std::function<double(std::size_t)> count) { return items_ = std::move(count), *this; }
  Pair& wall() { return wall_ = true, *this; }

 private:
  friend int run_pairs(int argc, char** argv);
  std::string name_, peer_name_, remark_;
  Run ours_, peer_;
  Proof prove_;  // ends the program where the results differ
  std::set<std::size_t> proved_;
  double goal_ = 0.0;
  std::vector<std::size_t> sizes_{1000, 1'000'000};
  std::function<double(std::size_t)> items_ = [](std::size_t n) { return static_cast<double>(n); };
  bool wall_ = false;
};

/// Takes the pair into the list of this program.
Pair& enlist(Pair pair);

/// The body of `main`: runs all pairs, prints the table of ratios, and writes its rows, tab separated, to the file that
/// the environment variable ZOR_BENCH_ROWS names.
int run_pairs(int argc, char** argv);

/// n uniform numbers in [-1, 1), the same at every call with the same seed.
inline std::vector<double> noise(std::size_t n, std::uint64_t seed = 20240229) {
  std::mt19937_64 bits(seed);
  std::vector<double> x(n);
  for (double& v : x) v = static_cast<double>(bits() >> 11) * 0x1p-52 - 1.0;
  return x;
}

/// Proof: the results are equal.
inline constexpr auto equal = [](const auto& ours, const auto& peer) { return ours == peer; };

/// Proof: numbers, or the cells of two runs, differ by at most `tolerance` times the larger of 1 and their size.
inline auto close(double tolerance) {
  return [tolerance](const auto& ours, const auto& peer) {
    const auto near = [tolerance](double a, double b) {
      const double size = std::max({1.0, std::abs(a), std::abs(b)});
      return std::abs(a - b) <= tolerance * size;
    };
    if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(ours)>>) {
      return near(ours, peer);
    } else {
      return std::equal(std::begin(ours), std::end(ours), std::begin(peer), std::end(peer), near);
    }
  };
}

namespace detail {

template <class Data>
void reset([[maybe_unused]] Data& data) {
  if constexpr (requires { data.reset(); }) data.reset();
}

template <class F, class Data>
void call(F& f, Data& data) {
  if constexpr (std::is_void_v<std::invoke_result_t<F&, Data&>>) {
    f(data);
  } else {
    auto&& result = f(data);
    benchmark::DoNotOptimize(&result);
  }
  benchmark::ClobberMemory();
}

/// Seconds on a clock of the system: CLOCK_THREAD_CPUTIME_ID or CLOCK_MONOTONIC.
inline double seconds(clockid_t clock) {
  std::timespec t{};
  clock_gettime(clock, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

/// The timed loop. With a `reset` outside the time, both times are taken by hand.
template <class Data, class F>
void time(benchmark::State& state, Data data, F& f) {
  reset(data);
  call(f, data);
  if constexpr (requires { data.reset(); }) {
    double processor = 0.0, wall = 0.0;
    for ([[maybe_unused]] auto _ : state) {
      data.reset();
      const double wall_start = seconds(CLOCK_MONOTONIC), start = seconds(CLOCK_THREAD_CPUTIME_ID);
      call(f, data);
      processor += seconds(CLOCK_THREAD_CPUTIME_ID) - start;
      wall += seconds(CLOCK_MONOTONIC) - wall_start;
    }
    state.counters["processor"] = processor;
    state.counters["wall"] = wall;
  } else {
    for ([[maybe_unused]] auto _ : state) call(f, data);
  }
}

template <class Make, class F>
auto result(Make& make, F& f, std::size_t n) {
  auto data = make(n);
  reset(data);
  if constexpr (std::is_invocable_v<std::invoke_result_t<F&, decltype(data)&>>) {
    return f(data)();
  } else {
    return std::decay_t<std::invoke_result_t<F&, decltype(data)&>>(f(data));
  }
}

}  // namespace detail

template <class Make, class Ours>
Pair& rate(const char* name, Make make, Ours ours) {
  return enlist(
      {name, [=](benchmark::State& state, std::size_t n) mutable { detail::time(state, make(n), ours); }, {}, {}});
}

template <class Make, class Ours, class Peer, class Same>
Pair& pair(const char* name, Make make, Ours ours, Peer peer, Same same) {
  auto prove = [=](std::size_t n) mutable {
    if (same(detail::result(make, ours, n), detail::result(make, peer, n))) return;
    std::fprintf(stderr, "%s, size %zu: our result is not that of the peer\n", name, n);
    std::exit(1);
  };
  return enlist({name, [=](benchmark::State& state, std::size_t n) mutable { detail::time(state, make(n), ours); },
                 [=](benchmark::State& state, std::size_t n) mutable { detail::time(state, make(n), peer); }, prove});
}

}  // namespace zor::bench

/// Lists a pair: name, make, ours, peer, same. See the example on top.
#define ZOR_BENCH_PAIR(name, ...) \
  [[maybe_unused]] static ::zor::bench::Pair& name##_pair = ::zor::bench::pair(#name, __VA_ARGS__)
/// Lists work without a peer: name, make, ours.
#define ZOR_BENCH_RATE(name, ...) \
  [[maybe_unused]] static ::zor::bench::Pair& name##_rate = ::zor::bench::rate(#name, __VA_ARGS__)

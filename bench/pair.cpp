#include "bench/pair.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <fstream>
#include <iostream>
#include <map>

#include "zor/kernels/dispatch.h"

namespace zor::bench {
namespace {

std::deque<Pair>& pairs() {
  static std::deque<Pair> list;
  return list;
}

/// Keeps the seconds of each repetition, for each name.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<benchmark::BenchmarkReporter::Run>& runs) override {
    for (const auto& run : runs) {
      if (run.run_type != benchmark::BenchmarkReporter::Run::RT_Iteration || run.iterations == 0) continue;
      const bool wall = run.run_name.time_type == "real_time";
      const auto by_hand = run.counters.find(wall ? "wall" : "processor");
      const double seconds = by_hand != run.counters.end() ? by_hand->second.value
                             : wall                        ? run.real_accumulated_time
                                                           : run.cpu_accumulated_time;
      times_[run.run_name.function_name].push_back(seconds / static_cast<double>(run.iterations));
      std::cerr << '.' << std::flush;
    }
  }

  /// Median of the seconds of one call; 0 if it did not run.
  double median(const std::string& name) {
    auto& t = times_[name];
    if (t.empty()) return 0.0;
    std::sort(t.begin(), t.end());
    return t.size() % 2 ? t[t.size() / 2] : (t[t.size() / 2 - 1] + t[t.size() / 2]) / 2;
  }

 private:
  std::map<std::string, std::vector<double>> times_;
};

std::string number(const char* format, double x) {
  char text[64];
  std::snprintf(text, sizeof text, format, x);
  return text;
}

/// Items a second with a prefix.
std::string rate_text(double rate) {
  if (rate >= 1e9) return number("%.3g G/s", rate / 1e9);
  if (rate >= 1e6) return number("%.3g M/s", rate / 1e6);
  if (rate >= 1e3) return number("%.3g k/s", rate / 1e3);
  return number("%.3g /s", rate);
}

std::string processor() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);)
    if (line.rfind("model name", 0) == 0) return line.substr(line.find(':') + 2);
  return "unknown processor";
}

std::string machine() {
#if defined(__clang__)
  const std::string compiler = "Clang " __clang_version__;
#else
  const std::string compiler = "GCC " __VERSION__;
#endif
  const char* const levels[] = {"v2", "v3", "v4"};
  return processor() + ", " + compiler + ", kernels at level " + levels[static_cast<int>(kernels::active_level())];
}

}  // namespace

Pair& enlist(Pair pair) { return pairs().emplace_back(std::move(pair)); }

int run_pairs(int argc, char** argv) {
  // Defaults first, so that the command line may change them.
  std::vector<char*> args{argv[0]};
  char interleave[] = "--benchmark_enable_random_interleaving=true";
  char repeat[] = "--benchmark_repetitions=7";
  char least[] = "--benchmark_min_time=0.05";
  args.insert(args.end(), {interleave, repeat, least});
  args.insert(args.end(), argv + 1, argv + argc);
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;

  for (Pair& p : pairs()) {
    for (const std::size_t n : p.sizes_) {
      const std::string name = p.name_ + "/" + std::to_string(n);
      const auto add = [&](const std::string& who, Run& run) {
        auto* b = benchmark::RegisterBenchmark((name + who).c_str(), [&run, &p, n](benchmark::State& state) {
          if (p.prove_ && p.proved_.insert(n).second) p.prove_(n);
          run(state, n);
        });
        if (p.wall_) b->UseRealTime();
      };
      add("/ours", p.ours_);
      if (p.peer_) add("/peer", p.peer_);
    }
  }
  Collector times;
  benchmark::RunSpecifiedBenchmarks(&times);
  std::cerr << '\n';

  std::ofstream rows;
  if (const char* file = std::getenv("ZOR_BENCH_ROWS")) rows.open(file);
  rows << "machine\t" << machine() << '\n';
  std::printf("%s\n%-28s %10s %12s  %8s %6s %4s  %s\n", machine().c_str(), "work", "size", "ours", "ratio", "goal",
              "met", "peer");
  for (Pair& p : pairs()) {
    for (const std::size_t n : p.sizes_) {
      const std::string name = p.name_ + "/" + std::to_string(n);
      const double ours = times.median(name + "/ours"), peer = times.median(name + "/peer");
      if (ours == 0.0) continue;
      const std::string speed = rate_text(p.items_(n) / ours);
      const std::string ratio = peer > 0.0 ? number("%.2f", ours / peer) : "-";
      const std::string goal = p.goal_ > 0.0 ? number("%.2f", p.goal_) : "-";
      const std::string met = peer > 0.0 && p.goal_ > 0.0 ? (ours / peer <= p.goal_ + 0.005 ? "yes" : "no") : "-";
      std::printf("%-28s %10zu %12s  %8s %6s %4s  %s\n", p.name_.c_str(), n, speed.c_str(), ratio.c_str(), goal.c_str(),
                  met.c_str(), p.peer_name_.c_str());
      rows << "row\t" << p.name_ << '\t' << n << '\t' << speed << '\t' << p.peer_name_ << '\t' << ratio << '\t' << goal
           << '\t' << met << '\t' << p.remark_ << '\n';
    }
  }
  return 0;
}

}  // namespace zor::bench

int main(int argc, char** argv) { return zor::bench::run_pairs(argc, argv); }

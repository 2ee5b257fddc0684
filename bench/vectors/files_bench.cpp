#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/pair.h"
#include "zor/vectors/ZOR_vector.h"

namespace ZOR_vector {
namespace {

namespace bench = zor::bench;

/// A vector, a file for it, and a buffer with the same numbers for the peer.
struct Files {
  std::unique_ptr<TVector> v = std::make_unique<TVector>();
  std::vector<double> x;
  std::string buffer;
  std::string name;
};

std::size_t to_chars_loop(Files& f) {
  f.buffer.resize(f.x.size() * 24);
  char* at = f.buffer.data();
  for (const double x : f.x) {
    at = std::to_chars(at, at + 24, x, std::chars_format::fixed, 6).ptr;
    *at++ = '\n';
  }
  return static_cast<std::size_t>(at - f.buffer.data());
}

Files files(std::size_t n) {
  Files f;
  f.x = bench::noise(n);
  for (double& x : f.x) x *= 1000.0;
  f.v->SetNrOfElem(static_cast<Integer>(n));
  std::ranges::copy(f.x, f.v->Edit().begin());
  f.name = (std::filesystem::temp_directory_path() / ("zor_bench_" + std::to_string(::getpid()))).string();
  f.buffer.resize(to_chars_loop(f));
  f.v->StoreOnFile(0, 0, 6, f.name);
  return f;
}

double from_chars_loop(Files& f) {
  const char *at = f.buffer.data(), *end = at + f.buffer.size();
  for (double& x : f.x) {
    at = std::from_chars(at, end, x).ptr;
    ++at;
  }
  return f.x.back();
}

ZOR_BENCH_PAIR(
    PlainWrite, files,
    [](Files& f) {
      f.v->StoreOnFile(0, 0, 6, f.name);
      return 0.0;
    },
    [](Files& f) { return static_cast<double>(to_chars_loop(f)) * 0.0; }, bench::equal)
    .against("std::to_chars into a buffer")
    .goal(0.6)
    .sizes({1'000'000})
    .remark("ours writes the file");

ZOR_BENCH_PAIR(
    AscWrite, files,
    [](Files& f) {
      f.v->ExportAsASC(f.name + ".asc", 6, "bench");
      return 0.0;
    },
    [](Files& f) { return static_cast<double>(to_chars_loop(f)) * 0.0; }, bench::equal)
    .against("std::to_chars into a buffer")
    .goal(0.6)
    .sizes({1'000'000})
    .remark("ours writes the file, each number right-aligned in 12 characters");

ZOR_BENCH_PAIR(
    PlainRead, files,
    [](Files& f) {
      f.v->LoadFromFile(f.name, true);
      return f.v->GetVal(f.v->NrOfElem());
    },
    from_chars_loop, bench::equal)
    .against("std::from_chars on a buffer")
    .goal(1.1)
    .sizes({1'000'000})
    .remark("ours reads the file");

ZOR_BENCH_PAIR(
    AscRead,
    [](std::size_t n) {
      Files f = files(n);
      f.name += ".asc";
      f.v->ExportAsASC(f.name, 6, "bench");
      return f;
    },
    [](Files& f) {
      TString comment;
      f.v->ImportASC(f.name, comment);
      return f.v->GetVal(f.v->NrOfElem());
    },
    from_chars_loop, bench::equal)
    .against("std::from_chars on a buffer")
    .goal(1.1)
    .sizes({1'000'000})
    .remark("ours reads the file");

}  // namespace
}  // namespace ZOR_vector

#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

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

/// Reads the numbers of the buffer; what is returned gives them.
auto from_chars_loop(Files& f) {
  const char *at = f.buffer.data(), *end = at + f.buffer.size();
  for (double& x : f.x) {
    at = std::from_chars(at, end, x).ptr;
    ++at;
  }
  return [&f] { return f.x; };
}

/// The last `count` words of a text: its numbers, without what stands before them.
std::vector<std::string> last_words(std::istream&& text, std::size_t count) {
  std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
  words.erase(words.begin(), words.end() - static_cast<std::ptrdiff_t>(std::min(count, words.size())));
  return words;
}

auto words_of_file(const std::string& name, const Files& f) {
  return [&f, name] { return last_words(std::ifstream(name), f.x.size()); };
}

auto words_of_buffer(const Files& f, std::size_t length) {
  return [&f, length] { return last_words(std::istringstream(f.buffer.substr(0, length)), f.x.size()); };
}

auto cells_of(const Files& f) {
  return [&f] { return std::vector<double>(f.v->begin(), f.v->end()); };
}

ZOR_BENCH_PAIR(
    PlainWrite, files,
    [](Files& f) {
      f.v->StoreOnFile(0, 0, 6, f.name);
      return words_of_file(f.name, f);
    },
    [](Files& f) { return words_of_buffer(f, to_chars_loop(f)); }, bench::equal)
    .against("std::to_chars into a buffer")
    .goal(0.6)
    .sizes({1'000'000})
    .remark("ours writes the file");

ZOR_BENCH_PAIR(
    AscWrite, files,
    [](Files& f) {
      f.v->ExportAsASC(f.name + ".asc", 6, "bench");
      return words_of_file(f.name + ".asc", f);
    },
    [](Files& f) { return words_of_buffer(f, to_chars_loop(f)); }, bench::equal)
    .against("std::to_chars into a buffer")
    .goal(0.6)
    .sizes({1'000'000})
    .remark("ours writes the file, each number right-aligned in 12 characters");

ZOR_BENCH_PAIR(
    PlainRead, files,
    [](Files& f) {
      f.v->LoadFromFile(f.name, true);
      return cells_of(f);
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
      return cells_of(f);
    },
    from_chars_loop, bench::equal)
    .against("std::from_chars on a buffer")
    .goal(1.1)
    .sizes({1'000'000})
    .remark("ours reads the file");

}  // namespace
}  // namespace ZOR_vector

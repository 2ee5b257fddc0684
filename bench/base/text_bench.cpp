// Text and binary files. Ours goes through the classes that all readers and writers of the library use, on memory, so
// that no disk is measured; the peer is a bare loop on a buffer.
#include <charconv>
#include <cstring>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "bench/pair.h"
#include "zor/base/ZOR_zorbase.h"
#include "zor/base/asc_codec.h"
#include "zor/base/stream_numbers.h"

namespace {

using namespace ZOR_zorbase;

constexpr int kDecimals = 6;

bool blank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

// Text that was written; its memory is touched once, before anything is timed.
struct Output {
  std::vector<char> bytes;
  std::size_t length = 0;

  friend bool operator==(const Output& a, const Output& b) {
    return a.length == b.length && std::memcmp(a.bytes.data(), b.bytes.data(), a.length) == 0;
  }
};

// Stream that takes the place of a file.
class OutputStream : public TStream {
 public:
  explicit OutputStream(Output& output) : output_(output) { output_.length = 0; }
  Int64 Read(void*, Int64) override { return 0; }
  Int64 Write(const void* from, Int64 count) override {
    std::memcpy(output_.bytes.data() + output_.length, from, static_cast<std::size_t>(count));
    output_.length += static_cast<std::size_t>(count);
    return count;
  }
  Int64 Seek(Int64, ZOR_runtime::TSeekOrigin) override { return static_cast<Int64>(output_.length); }
  Int64 Size() override { return static_cast<Int64>(output_.length); }
  void SetSize(Int64) override {}

 private:
  Output& output_;
};

struct Numbers {
  std::vector<double> x;
  Output output;

  explicit Numbers(std::size_t n) : x(zor::bench::noise(n)), output{std::vector<char>(32 * n), 0} {
    for (double& v : x) v *= 1000.0;
  }
};

const Output& write_by_loop(Numbers& numbers) {
  char* at = numbers.output.bytes.data();
  for (const double v : numbers.x) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, v, std::chars_format::fixed, kDecimals).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    const std::size_t pad = length < 12 ? 12 - length : 0;
    std::memset(at, ' ', pad);
    std::memcpy(at + pad, digits, length);
    at += pad + length;
    *at++ = '\n';
  }
  numbers.output.length = static_cast<std::size_t>(at - numbers.output.bytes.data());
  return numbers.output;
}

const Output& write_text_file(Numbers& numbers) {
  OutputStream stream(numbers.output);
  TTextFile file;
  file.AssignStream(&stream);
  file.Rewrite();
  for (const double v : numbers.x) {
    file.WriteFloat(v, 12, kDecimals);
    file.WriteLn();
  }
  file.Close();
  return numbers.output;
}

ZOR_BENCH_PAIR(
    WriteText, [](std::size_t n) { return Numbers(n); }, write_text_file, write_by_loop, zor::bench::equal)
    .against("std::to_chars on a buffer")
    .goal(0.6)
    .sizes({10'000, 1'000'000});

// The text of numbers, and room for them.
struct Text {
  std::string text;
  std::vector<double> x;

  explicit Text(std::size_t n) : x(n) {
    Numbers numbers(n);
    const Output& output = write_by_loop(numbers);
    text.assign(output.bytes.data(), output.length);
  }
};

const std::vector<double>& read_by_loop(Text& text) {
  const char* at = text.text.data();
  const char* const end = at + text.text.size();
  for (double& v : text.x) {
    while (at != end && blank(*at)) ++at;
    at = std::from_chars(at, end, v).ptr;
  }
  return text.x;
}

const std::vector<double>& read_asc_cells(Text& text) {
  TTextFile file;
  file.AssignText(text.text);
  file.Reset();
  for (double& v : text.x) zor::detail::read_asc_cell(file, v);
  return text.x;
}

ZOR_BENCH_PAIR(
    ReadText, [](std::size_t n) { return Text(n); }, read_asc_cells, read_by_loop, zor::bench::equal)
    .against("std::from_chars on a buffer")
    .goal(1.1)
    .sizes({10'000, 1'000'000});

// A file in memory (/dev/shm) and room for its numbers.
struct Binary {
  std::vector<double> x;
  std::string name;

  explicit Binary(std::size_t n) : x(zor::bench::noise(n)), name("/dev/shm/zor_bench_" + std::to_string(::getpid())) {
    TFileStream file(name, ZOR_runtime::fmCreate);
    zor::detail::write_numbers(file, std::span<const double>(x));
    file.Close();
  }
  ~Binary() { ::unlink(name.c_str()); }
};

const std::vector<double>& load_stream(Binary& binary) {
  TFileStream file(binary.name, ZOR_runtime::fmOpenRead);
  zor::detail::read_numbers(file, std::span<double>(binary.x));
  return binary.x;
}

const std::vector<double>& load_by_read(Binary& binary) {
  const int file = ::open(binary.name.c_str(), O_RDONLY);
  auto* at = reinterpret_cast<char*>(binary.x.data());
  std::size_t left = binary.x.size() * sizeof(double);
  while (left > 0) {
    const auto got = ::read(file, at, std::min<std::size_t>(left, 1 << 20));
    if (got <= 0) break;
    at += got, left -= static_cast<std::size_t>(got);
  }
  ::close(file);
  return binary.x;
}

ZOR_BENCH_PAIR(
    LoadBinary, [](std::size_t n) { return Binary(n); }, load_stream, load_by_read, zor::bench::equal)
    .against("read(2) by 1 MiB")
    .goal(1.1)
    .sizes({1'000'000, 16'000'000});

struct Save : Binary {
  using Binary::Binary;
  std::size_t bytes() const { return x.size() * sizeof(double); }
};

// Both return the number of bytes written.
std::size_t save_stream(Save& save) {
  TFileStream file(save.name, ZOR_runtime::fmOpenWrite);
  zor::detail::write_numbers(file, std::span<const double>(save.x));
  file.Close();
  return save.bytes();
}

std::size_t save_by_write(Save& save) {
  const int file = ::open(save.name.c_str(), O_WRONLY);
  const auto* at = reinterpret_cast<const char*>(save.x.data());
  std::size_t done = 0;
  while (done < save.bytes()) {
    const auto put = ::write(file, at + done, std::min<std::size_t>(save.bytes() - done, 1 << 20));
    if (put <= 0) break;
    done += static_cast<std::size_t>(put);
  }
  ::close(file);
  return done;
}

ZOR_BENCH_PAIR(
    SaveBinary, [](std::size_t n) { return Save(n); }, save_stream, save_by_write, zor::bench::equal)
    .against("write(2) by 1 MiB")
    .goal(1.1)
    .sizes({1'000'000, 16'000'000});

}  // namespace

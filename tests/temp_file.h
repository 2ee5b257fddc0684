#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zor::test {

/// Name of a file of this test's own, which is deleted at the end of the scope. It exists only if contents are given.
class TempFile {
 public:
  TempFile() {
    static std::atomic<int> count = 0;
    path_ = ::testing::TempDir() + "zor_" + std::to_string(::getpid()) + "_" + std::to_string(++count);
  }
  explicit TempFile(std::string_view contents) : TempFile() {
    std::ofstream(path_, std::ios::binary).write(contents.data(), static_cast<std::streamsize>(contents.size()));
  }
  ~TempFile() { std::remove(path_.c_str()); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const std::string& path() const { return path_; }
  std::string contents() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace zor::test

#include "zor/runtime/file_replacement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "tests/message_of.h"
#include "tests/temp_file.h"
#include "zor/runtime/exception.h"
#include "zor/runtime/text_file.h"

namespace zor::detail {
namespace {

namespace fs = std::filesystem;
using ZOR_runtime::EInOutError;

/// A folder of this test's own with one file, "old" in the file "target".
class Replacement : public ::testing::Test {
 protected:
  Replacement() {
    fs::create_directory(folder());
    put(target(), "old");
  }
  ~Replacement() override { fs::remove_all(folder()); }
  fs::path folder() const { return temp_.path() + ".d"; }
  std::string target() const { return folder() / "target"; }
  static void put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
  static std::string get(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static void replace(const std::string& path, const std::string& text) {
    FileReplacement file(path);
    file.WriteBuffer(text.data(), static_cast<std::int64_t>(text.size()));
    file.Close();
  }
  long files() const { return std::distance(fs::directory_iterator(folder()), fs::directory_iterator()); }

 private:
  zor::test::TempFile temp_;
};

TEST_F(Replacement, HappensInCloseAndNotWithoutIt) {
  {
    FileReplacement dropped(target());
    const std::string large(200000, 'x');
    dropped.WriteBuffer(large.data(), 200000);
    dropped.Flush();
    EXPECT_EQ(get(target()), "old");
  }
  EXPECT_EQ(get(target()), "old");
  {
    ZOR_runtime::TTextFile text(target());
    text.Replace();
    text.Write("lost");
  }
  EXPECT_EQ(get(target()), "old");
  replace(target(), "new");
  EXPECT_EQ(get(target()), "new");
  replace(folder() / "another", "first");
  EXPECT_EQ(get(folder() / "another"), "first");
  EXPECT_EQ(files(), 2) << "no temporary file is left";
}

TEST_F(Replacement, KeepsPermissionsAndGivesNewFilesTheUsualOnes) {
  const auto mode = [](const std::string& path) {
    struct stat about {};
    return ::stat(path.c_str(), &about) == 0 ? about.st_mode & 07777U : 0U;
  };
  for (const mode_t old : {0600U, 0640U, 0755U, 0666U}) {
    ASSERT_EQ(::chmod(target().c_str(), old), 0);
    replace(target(), "new");
    EXPECT_EQ(mode(target()), old);
  }
  const mode_t before = ::umask(027);
  replace(folder() / "another", "new");
  ::umask(before);
  EXPECT_EQ(mode(folder() / "another"), 0640U);
  if (::geteuid() == 0) return;
  ASSERT_EQ(::chmod(target().c_str(), 0444), 0);
  EXPECT_THROW(replace(target(), "forbidden"), EInOutError);
  EXPECT_EQ(get(target()), "new");
}

TEST_F(Replacement, FollowsSymbolicLinks) {
  fs::create_directory(folder() / "inner");
  fs::create_symlink("../target", folder() / "inner/first");
  fs::create_symlink("inner/first", folder() / "second");
  fs::create_symlink("missing", folder() / "dangling");
  fs::create_symlink("loop", folder() / "loop");
  replace(folder() / "second", "through two links");
  EXPECT_EQ(get(target()), "through two links");
  EXPECT_TRUE(fs::is_symlink(folder() / "second") && fs::is_symlink(folder() / "inner/first"));
  replace(folder() / "dangling", "made");
  EXPECT_EQ(get(folder() / "missing"), "made");
  EXPECT_THROW(replace(folder() / "loop", "endless"), EInOutError);
  EXPECT_EQ(files(), 6);
}

TEST_F(Replacement, WritesWhatIsNoRegularFileDirectly) {
  const std::string pipe = folder() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  replace(pipe, "through");
  char bytes[16] = "";
  EXPECT_EQ(::read(reader, bytes, sizeof bytes), 7);
  EXPECT_STREQ(bytes, "through");
  ::close(reader);
  EXPECT_TRUE(fs::is_fifo(pipe));
  replace("/dev/null", "nothing");
  const int open = ::open(target().c_str(), O_RDWR);
  replace("/proc/self/fd/" + std::to_string(open), "by descriptor");
  EXPECT_EQ(::pread(open, bytes, sizeof bytes, 0), 13) << "the open file is the one that was written";
  ::close(open);
  EXPECT_EQ(files(), 2);
}

TEST_F(Replacement, SaysWhyAFileCannotBeMade) {
  const auto message = [&](const std::string& path) {
    return zor::test::message_of<EInOutError>([&] { replace(path, "x"); });
  };
  EXPECT_EQ(message(target() + "/x"), "cannot create \"" + target() + "/x\": Not a directory");
  EXPECT_EQ(message(folder()), "cannot create \"" + folder().string() + "\": Is a directory");
  EXPECT_EQ(message("/no/such"), "cannot create \"/no/such\": No such file or directory");
  EXPECT_NE(message(""), "");
  EXPECT_NE(message(std::string("a\0b", 3)), "");
  EXPECT_NE(message(folder() / std::string(300, 'n')), "");
}

TEST_F(Replacement, IsRefusedAfterAWriteThatFailed) {
  FileReplacement file(target());
  const std::string large(100000, 'x');
  {
    const FileCallScope full([](FileCall call) { return call == FileCall::kWrite ? ENOSPC : 0; });
    EXPECT_THROW(file.WriteBuffer(large.data(), 100000), EInOutError);
  }
  file.WriteBuffer("rest", 4);
  EXPECT_THROW(file.Close(), EInOutError);
  EXPECT_EQ(get(target()), "old");
  EXPECT_EQ(files(), 1);
}

TEST(Reasons, AreEnglishInEveryLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"C", "de_DE.UTF-8", "fr_FR.UTF-8", ""}) {
    std::setlocale(LC_ALL, locale);
    EXPECT_EQ(reason_of(ENOENT), "No such file or directory");
  }
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace zor::detail

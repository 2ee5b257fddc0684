#include "zor/runtime/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace zor::detail {
namespace {

using ZOR_runtime::TString;

struct stat about(const std::string& path, int& reason) {
  struct stat found {};
  reason = ::stat(path.c_str(), &found) == 0 ? 0 : errno;
  return found;
}

/// Where a path leads through symbolic links; none if through the name of an open descriptor, behind which any other
/// writer of that descriptor would be lost.
std::optional<std::string> follow_links(std::string path) {
  constexpr int kMostLinks = 40;  // as many as the operating system follows
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code no_link;
    const std::filesystem::path link = std::filesystem::read_symlink(path, no_link);
    if (no_link) break;
    if (path.starts_with("/proc/") || path.starts_with("/dev/fd/")) return std::nullopt;
    path = std::filesystem::path(path).parent_path() / link;
  }
  return path;
}

/// The path of the regular file, there or still to be created, that a name stands for; none if it stands for something
/// else.
std::optional<std::string> place_of(const TString& name, std::optional<struct stat>& old) {
  const std::string path = name.utf8();
  int reason = 0;
  const struct stat found = about(path, reason);
  if (path.empty() || path.find('\0') != path.npos || (reason != 0 && reason != ENOENT)) return std::nullopt;
  if (reason == 0 && !S_ISREG(found.st_mode)) return std::nullopt;
  const auto target = follow_links(path);
  if (!target || reason != 0) return target;
  const struct stat there = about(*target, reason);
  if (reason != 0 || there.st_dev != found.st_dev || there.st_ino != found.st_ino) return std::nullopt;
  if (::faccessat(AT_FDCWD, target->c_str(), W_OK, AT_EACCESS) != 0) fail_io("cannot create", name, reason_of(errno));
  old = found;
  return target;
}

/// Creates a file beside the target, which nobody else may read while the old permissions are not known to allow it.
int create_beside(const std::string& target, bool hidden, std::string& path) {
  static constinit std::atomic<unsigned> count{0};
  const auto folder = std::filesystem::path(target).parent_path();
  const std::string start = ".zor-" + std::to_string(::getpid()) + "-";
  int descriptor = -1;
  do {
    path = folder / (start + std::to_string(++count) + ".tmp");
    descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, hidden ? 0600 : 0666);
  } while (descriptor < 0 && (errno == EINTR || errno == EEXIST));
  return descriptor;
}

}  // namespace

FileReplacement::Place FileReplacement::make(const TString& name) {
  std::optional<struct stat> old;
  auto target = place_of(name, old);
  if (!target) return {FileHandle(name, FileAccess::kCreate), {}, {}};
  if (const int refused = refusal(FileCall::kCreate)) fail_io("cannot create", name, reason_of(refused));
  TString shown = name;
  std::string temporary;
  const int descriptor = create_beside(*target, old.has_value(), temporary);
  if (descriptor < 0) fail_io("cannot create", name, reason_of(errno));
  if (old) {
    // Another owner can be kept by a privileged program only; the group often.
    if (::fchown(descriptor, old->st_uid, old->st_gid) != 0) {
      [[maybe_unused]] const int group = ::fchown(descriptor, static_cast<uid_t>(-1), old->st_gid);
    }
    if (::fchmod(descriptor, old->st_mode & 07777) != 0) {
      const int reason = errno;
      ::close(descriptor);
      ::unlink(temporary.c_str());
      fail_io("cannot create", name, reason_of(reason));
    }
  }
  return {FileHandle(std::move(shown), descriptor), std::move(*target), std::move(temporary)};
}

FileReplacement::FileReplacement(const TString& FileName) : FileReplacement(make(FileName)) {}

FileReplacement::FileReplacement(Place place) noexcept
    : TFileStream(std::move(place.file)), target_(std::move(place.target)), temporary_(std::move(place.temporary)) {}

FileReplacement::~FileReplacement() { abandon(); }

void FileReplacement::abandon() noexcept {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
  temporary_.clear();
}

void FileReplacement::Close() {
  if (!handle().is_open()) return;
  if (temporary_.empty()) return TFileStream::Close();
  try {
    Flush();
    handle().sync();
    TFileStream::Close();
    int reason = refusal(FileCall::kRename);
    if (reason == 0 && std::rename(temporary_.c_str(), target_.c_str()) != 0) reason = errno;
    if (reason != 0) fail_io("cannot replace", FileName(), reason_of(reason));
  } catch (...) {
    abandon();
    throw;
  }
  temporary_.clear();
}

const char* FileReplacement::ClassName() const noexcept { return "FileReplacement"; }

}  // namespace zor::detail

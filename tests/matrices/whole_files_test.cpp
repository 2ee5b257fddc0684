// Every routine that writes a whole file by name replaces it: a failure of any call, or a kill there, leaves the old
// file or the new one.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include "zor/arrays/ZOR_openarrays.h"
#include "zor/imaging/ZOR_imaging.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/runtime/file_handle.h"
#include "zor/runtime/string_list.h"

namespace ZOR_matrix {
namespace {

namespace fs = std::filesystem;
using zor::detail::FileCall;
using zor::detail::FileCallScope;

struct Writer {
  const char* name;
  std::function<void(const TString& file)> write;
  bool reports = true;  // a failure after the creation of the file is reported
};
void PrintTo(const Writer& writer, std::ostream* out) { *out << writer.name; }

/// What is written: more than the buffers of streams and text files hold.
struct Things {
  Things() {
    matrix.Resize(150, 150);
    matrix.Fill(1.25);
    vector.Resize(12000);
    numbers.Resize(40000);
    for (int i = 0; i < 9000; ++i) names.Add("a name of some length");
    bytes.SetSize(150000);
    bitmap.SetSize(150, 160);
    SetLength(colors, 150, 160);
  }
  TMatrix matrix;
  TVector vector;
  TIntVector numbers;
  ZOR_runtime::TStringList names;
  TMemoryStream bytes;
  ZOR_imaging::TBitmap bitmap;
  TInt2DArray colors;
};
const Things& things() {
  static const Things all;
  return all;
}

const Writer kWriters[] = {
    {"memory stream", [](const TString& f) { things().bytes.SaveToFile(f); }},
    {"string list", [](const TString& f) { things().names.SaveToFile(f); }},
    {"bitmap", [](const TString& f) { things().bitmap.SaveToFile(f); }},
    {"image of an array", [](const TString& f) { ZOR_openarrays::SaveArrayAsImg(f, things().colors, 1); }},
    {"vector, plain", [](const TString& f) { things().vector.StoreOnFile(0, 0, 3, f); }, false},
    {"vector, ASC", [](const TString& f) { things().vector.ExportAsASC(f, 3, ""); }},
    {"integers, plain", [](const TString& f) { things().numbers.StoreOnFile(1, 40000, f); }, false},
    {"integers, ASC", [](const TString& f) { things().numbers.ExportAsASC(f, ""); }},
    {"matrix, plain", [](const TString& f) { things().matrix.StoreOnFile(0, 0, 0, 0, f); }, false},
    {"matrix, ASC", [](const TString& f) { things().matrix.ExportAsASC(f, 3, ""); }},
    {"matrix, XML", [](const TString& f) { things().matrix.SaveAsXMLFile(f, ""); }},
    {"matrix, records", [](const TString& f) { things().matrix.SaveBinary(f); }},
};

class WholeFiles : public ::testing::TestWithParam<Writer> {
 protected:
  WholeFiles() : folder_(fs::path(::testing::TempDir()) / ("zor_whole_" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
    GetParam().write(target());
    new_ = get();
  }
  ~WholeFiles() override { fs::remove_all(folder_); }

  std::string target() const { return folder_ / "target.bmp"; }
  std::string get() const {
    std::ifstream file(target(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void put_old() const { std::ofstream(target(), std::ios::trunc) << "old"; }
  bool is_alone() const { return std::distance(fs::directory_iterator(folder_), fs::directory_iterator()) == 1; }

  fs::path folder_;
  std::string new_;
};

TEST_P(WholeFiles, FailAtAnyCallAndLeaveTheOldOne) {
  ASSERT_GT(new_.size(), 70000U) << "more than one write";
  int calls = 0;
  for (int failing = 1; failing <= calls || failing == 1; ++failing) {
    SCOPED_TRACE(failing);
    put_old();
    calls = 0;
    FileCall kind{};
    bool raised = false;
    {
      const FileCallScope watch([&](FileCall call) {
        if (++calls != failing) return 0;
        kind = call;
        return ENOSPC;
      });
      try {
        GetParam().write(target());
      } catch (const ZOR_runtime::EInOutError&) {
        raised = true;
      }
    }
    EXPECT_EQ(get(), "old");
    EXPECT_TRUE(is_alone());
    EXPECT_TRUE(raised || kind == FileCall::kCreate || !GetParam().reports);
    calls = std::max(calls, failing);
    const FileCallScope count([&](FileCall) { return ++calls, 0; });
    calls = 0;
    GetParam().write(target());
    EXPECT_EQ(get(), new_);
  }
}

TEST_P(WholeFiles, SurviveAKillAtAnyCall) {
  bool ended = false;
  for (int last = 1; !ended; ++last) {
    SCOPED_TRACE(last);
    put_old();
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      int calls = 0;
      const FileCallScope watch([&](FileCall) { return ++calls == last ? std::raise(SIGKILL) : 0; });
      GetParam().write(target());
      ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ended = WIFEXITED(status);
    EXPECT_EQ(get(), ended ? new_ : "old");
    EXPECT_TRUE(ended || last < 100);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(All, WholeFiles, ::testing::ValuesIn(kWriters));

}  // namespace
}  // namespace ZOR_matrix

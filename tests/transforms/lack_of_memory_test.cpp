// Every request for memory of every operation fails in turn, alone and with all that follow: what comes out is one of
// the exceptions for that, and the objects are as they were.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>
#include <optional>
#include <ostream>
#include <string>

#include "tests/temp_file.h"
#include "zor/arrays/ZOR_openarrays.h"
#include "zor/imaging/ZOR_imaging.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/runtime/cell_memory.h"
#include "zor/transforms/ZOR_fourier.h"
#include "zor/transforms/ZOR_wavelet.h"

namespace {

constinit std::atomic<long> g_left{0};  // requests up to the one that fails; 0: none does
constinit std::atomic<bool> g_for_good{false}, g_hit{false};

bool refused() {
  if (g_left.load(std::memory_order_relaxed) <= 0) return false;
  if (g_left.load() > 1) {
    --g_left;
    return false;
  }
  if (!g_for_good) g_left = 0;
  return g_hit = true;
}

void* take(std::size_t bytes) {
  void* const memory = refused() ? nullptr : std::malloc(bytes ? bytes : 1);
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

// The whole program asks here.
void* operator new(std::size_t bytes) { return take(bytes); }
void* operator new[](std::size_t bytes) { return take(bytes); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace ZOR_matrix {
namespace {

using zor::detail::AllocationLimits;
using zor::detail::AllocationLimitScope;
using zor::test::TempFile;
using ZOR_fourier::TFastFourier;
using ZOR_wavelet::TWavelet1D;

constexpr Integer kSide = 50;

/// What the operations work on.
struct State {
  State() {
    m.Resize(kSide, kSide), n.Resize(kSide, kSide), v.Resize(200), w.Resize(kSide), i.Resize(200);
    for (Integer c = 1; c <= kSide; ++c) {
      w.SetVal(c, 1.0 / c);
      for (Integer r = 1; r <= kSide; ++r)
        m.SetVal(c, r, (c * 37 + r * 11) % 101 + (c == r) * 500.0), n.SetVal(c, r, c - r);
    }
    for (Integer e = 1; e <= 200; ++e) v.SetVal(e, e * 29 % 83), i.SetVal(e, e * 31 % 89);
    fft.SetSpectrumSize(64), wavelet.SetSize(64);
    for (Integer e = 1; e <= 64; ++e) fft.SetRealVal(e, e % 7), wavelet.SetData(e, e % 5);
    fft.SetWgtWin(ZOR_fourier::fwHamming);
    for (int e = 0; e < 20; ++e) list.Add("text number " + std::to_string(e) + " of a list");
    stream.WriteBuffer("some bytes", 10);
    bitmap.SetSize(20, 30);
    SetLength(array, kSide, kSide);
    for (Integer c = 0; c < kSide; ++c) array[c][c] = 2.0, array[c][0] = 1.0;
  }

  std::string bytes() const {
    std::string all;
    const auto put = [&](const auto& cells) {
      all.append(reinterpret_cast<const char*>(cells.data()), cells.size() * sizeof(cells[0])) += '|';
    };
    for (const TMatrix* each : {&m, &n, &res}) {
      for (Integer c = 1; c <= each->NrOfColumns(); ++c) put(each->Column(c));
    }
    for (const TVector* each : {&v, &w, &vres}) put(each->Cells());
    put(i.Cells()), put(fft.Cells()), put(wavelet.Cells()), put(stream.Bytes()), put(bitmap.Pixels());
    for (const auto& column : array) put(column);
    return all + list.Text().utf8() + file->contents() + m.DataID().utf8();
  }

  TMatrix m, n, res;
  TVector v, w, vres;
  TIntVector i;
  TFastFourier fft;
  TWavelet1D wavelet;
  ZOR_runtime::TStringList list;
  TMemoryStream stream;
  ZOR_imaging::TBitmap bitmap;
  TDouble2DArray array;
  TString comment;
  std::optional<TempFile> file{std::in_place, "old"};
  TString name() const { return file->path(); }
};

/// Text takes many requests for many cells.
void small(State& s) { s.m.Resize(5, 6), s.v.Resize(20), s.i.Resize(20); }

/// Puts the file that a reader reads.
std::function<void(State&)> saved(std::function<void(State&)> save) {
  return [save](State& s) {
    small(s);
    save(s);
    s.m.Fill(3.0), s.v.Fill(3.0), s.list.Clear();
  };
}

struct Case {
  const char* name;
  std::function<void(State&)> act;
  bool keeps = true;  // what fails leaves all objects and files as they were
  std::function<void(State&)> before = [](State&) {};
};
void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

const Case kCases[] = {
    {"matrix resize", [](State& s) { s.m.Resize(80, 90); }},
    {"matrix transpose", [](State& s) { s.m.Transpose(); }},
    {"matrix remove column", [](State& s) { s.m.RemoveColumn(3); }},
    {"matrix remove row", [](State& s) { s.m.RemoveRow(3); }},
    {"matrix assign", [](State& s) { s.m.Assign(&s.n); }},
    {"matrix clone", [](State& s) { s.m.Clone(&s.n); }},
    {"matrix invert", [](State& s) { s.m.Invert(); }},
    {"matrix determinant", [](State& s) { s.m.Determinant(); }},
    {"matrix factors", [](State& s) { s.m.LUdecomposition(&s.res, &s.n); }},
    {"matrix Cholesky", [](State& s) { s.m.CholeskyDecomp(&s.res); }},
    {"matrix square", [](State& s) { s.m.Square(&s.res, 1.0, 1); }, false},
    {"matrix product", [](State& s) { s.m.Multiply(&s.n, &s.m); }},
    {"matrix product with vector", [](State& s) { s.m.Multiply(&s.w, &s.w); }},
    {"matrix standardize", [](State& s) { s.m.StandardizeColumns(&s.vres, nullptr); }},
    {"matrix standardize rows", [](State& s) { s.m.StandardizeRows(nullptr, nullptr); }},
    {"matrix quantile normalize", [](State& s) { s.m.QNormalizeColumns(0.5, nullptr, nullptr); }},
    {"matrix sort rows", [](State& s) { s.m.SortRows(1, true, 0, 0, 0, 0); }},
    {"matrix sort columns", [](State& s) { s.m.SortCols(1, true, 0, 0, 0, 0); }},
    {"matrix balance", [](State& s) { s.m.Balance(0.01); }},
    {"matrix differences", [](State& s) { s.m.Diff(1, acrColumns); }},
    {"matrix hat", [](State& s) { s.m.CalcHatMatrix(&s.res); }},
    {"matrix quartiles",
     [](State& s) {
       Double a, b, c;
       s.m.Quartiles(0, 0, 0, 0, a, b, c);
     }},
    {"matrix norm", [](State& s) { s.m.Norm(ntSpectral); }},
    {"matrix read XML", [](State& s) { s.m.LoadFromXMLFile(s.name(), ""); }, true,
     saved([](State& s) { s.m.SaveAsXMLFile(s.name(), ""); })},
    {"matrix read records", [](State& s) { s.m.LoadBinary(s.name()); }, true,
     saved([](State& s) { s.m.SaveBinary(s.name()); })},
    {"matrix read ASC", [](State& s) { s.m.ImportASC(s.name(), s.comment); }, false,
     saved([](State& s) { s.m.ExportAsASC(s.name(), 3, "c"); })},
    {"matrix read plain", [](State& s) { s.m.LoadFromFile(s.name(), true); }, false,
     saved([](State& s) { s.m.StoreOnFile(0, 0, 0, 0, s.name()); })},
    {"matrix write XML", [](State& s) { s.m.SaveAsXMLFile(s.name(), ""); }, true, small},
    {"matrix write XML to a stream", [](State& s) { s.m.WriteToXMLStream(&s.stream, true, ""); }, false},
    {"matrix write records", [](State& s) { s.m.SaveBinary(s.name()); }, true, small},
    {"matrix write ASC", [](State& s) { s.m.ExportAsASC(s.name(), 3, "c"); }, true, small},
    {"matrix write plain", [](State& s) { s.m.StoreOnFile(0, 0, 0, 0, s.name()); }, true, small},
    {"vector resize", [](State& s) { s.v.Resize(900); }},
    {"vector assign", [](State& s) { s.v.Assign(&s.w); }},
    {"vector sort", [](State& s) { s.v.SortElems(true, 0, 0); }},
    {"vector shuffle", [](State& s) { s.vres.ShuffleElems(); }},
    {"vector quartiles",
     [](State& s) {
       Double a, b, c;
       s.v.Quartiles(0, 0, a, b, c);
     }},
    {"vector mode", [](State& s) { s.v.Mode(0, 0); }},
    {"vector CRC", [](State& s) { s.v.CRCofData(); }},
    {"vector quantile normalize",
     [](State& s) {
       Double a, b;
       s.v.QNormalize(0.5, a, b);
     }},
    {"vector read ASC", [](State& s) { s.v.ImportASC(s.name(), s.comment); }, false,
     saved([](State& s) { s.v.ExportAsASC(s.name(), 3, "c"); })},
    {"vector read plain", [](State& s) { s.v.LoadFromFile(s.name(), true); }, false,
     saved([](State& s) { s.v.StoreOnFile(0, 0, 3, s.name()); })},
    {"vector write ASC", [](State& s) { s.v.ExportAsASC(s.name(), 3, "c"); }, true, small},
    {"vector write plain", [](State& s) { s.v.StoreOnFile(0, 0, 3, s.name()); }, true, small},
    {"integers resize", [](State& s) { s.i.Resize(900); }},
    {"integers write ASC", [](State& s) { s.i.ExportAsASC(s.name(), "c"); }, true, small},
    {"integers median", [](State& s) { s.i.Percentile(0.5, 0, 0); }},
    {"Fourier transform", [](State& s) { s.fft.Transform(); }},
    {"Fourier inverse", [](State& s) { s.fft.InverseTransform(); }},
    {"Fourier size", [](State& s) { s.fft.SetSpectrumSize(128); }},
    {"wavelet transform", [](State& s) { s.wavelet.Transform(1); }},
    {"wavelet size", [](State& s) { s.wavelet.SetSize(128); }},
    {"list add", [](State& s) { s.list.Add("a further text of the list"); }},
    {"list set", [](State& s) { s.list.SetText("first\nsecond, which is a longer one\nthird"); }},
    {"list read", [](State& s) { s.list.LoadFromFile(s.name()); }, true,
     saved([](State& s) { s.list.SaveToFile(s.name()); })},
    {"list write", [](State& s) { s.list.SaveToFile(s.name()); }},
    {"stream write", [](State& s) { s.stream.WriteBuffer(s.v.begin(), 1600); }},
    {"stream size", [](State& s) { s.stream.SetSize(100000); }},
    {"stream read file", [](State& s) { s.stream.LoadFromFile(s.name()); }},
    {"stream write file", [](State& s) { s.stream.SaveToFile(s.name()); }},
    {"bitmap size", [](State& s) { s.bitmap.SetSize(40, 50); }},
    {"bitmap write", [](State& s) { s.bitmap.SaveToFile(s.name()); }},
    {"array inverse", [](State& s) { ZOR_openarrays::InvertArray(s.array); }},
    {"array product", [](State& s) { ZOR_openarrays::MultiplyArrays(s.array, s.array, s.array); }},
    {"array transpose", [](State& s) { ZOR_openarrays::TransposeArray(s.array); }},
};

class LackOfMemory : public ::testing::TestWithParam<Case> {
 protected:
  /// Runs the operation with the k-th request of the standard library, or for cells, failing. False if there are fewer.
  bool fails_at(long k, bool for_cells, bool for_good) {
    State s;
    GetParam().before(s);
    const std::string before = s.bytes();
    bool hit = false, clean = true;
    g_for_good = for_good, g_hit = false;
    {
      const auto call = for_cells ? static_cast<std::size_t>(k) : AllocationLimits::kNone;
      const AllocationLimitScope cells({.failing_call = call, .for_good = for_cells && for_good});
      if (!for_cells) g_left = k;
      try {
        GetParam().act(s);
      } catch (const std::bad_alloc&) {
        hit = true;
      } catch (const Exception& e) {
        hit = true;
        clean = std::string(e.what()).find("not enough memory") != std::string::npos;
      }
      g_left = 0;
    }
    EXPECT_TRUE(clean) << "another exception";
    if (!hit && GetParam().keeps) {
      EXPECT_TRUE(s.bytes() == before || s.bytes() == expected_) << "half done";
    } else if (GetParam().keeps) {
      EXPECT_EQ(s.bytes() == before, true) << "changed by an operation that failed";
      GetParam().act(s);
      EXPECT_EQ(s.bytes() == expected_, true) << "does not work any more";
    }
    return hit || g_hit;
  }
  void SetUp() override {
    State s;
    GetParam().before(s);
    GetParam().act(s);
    expected_ = s.bytes();
  }
  std::string expected_;
};

TEST_P(LackOfMemory, LeavesAllAsItWasAndIsReportedAsSuch) {
  for (const bool for_cells : {false, true}) {
    for (const bool for_good : {false, true}) {
      long k = 1;
      while (k < 2000 && fails_at(k, for_cells, for_good)) {
        if (HasFailure())
          FAIL() << "request " << k << (for_cells ? " for cells" : "") << (for_good ? ", for good" : "");
        ++k;
      }
      EXPECT_LT(k, 2000);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, LackOfMemory, ::testing::ValuesIn(kCases));

}  // namespace
}  // namespace ZOR_matrix

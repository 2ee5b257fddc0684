#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <thread>
#include <vector>

#include "zor/base/feedback.h"
#include "zor/kernels/product.h"
#include "zor/matrices/heap_guard_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/runtime/threads.h"

namespace ZOR_matrix {
namespace {

/// Columns that are computed together: the more, the less often those behind them are packed; for several threads few
/// enough to share the work evenly.
constexpr Integer block_for(Integer threads) { return threads > 1 ? 48 : 240; }

/// One call of Square: the columns that are left, and where their products go.
class GramWork {
 public:
  GramWork(const TDynArray<const Double*>& columns, Integer rows, Double norm, Integer block, TDouble2DArray& result)
      : columns_(columns), rows_(rows), norm_(norm), block_(block), result_(result) {}

  /// The next block in `first` and `last` (not included); false if no column is left. The first blocks have the most
  /// cells to compute.
  bool take(Integer& first, Integer& last) noexcept {
    const Integer n = Length(columns_);
    first = next_.fetch_add(block_, std::memory_order_relaxed);
    if (first >= n) return false;
    last = (std::min)(first + block_, n);
    return true;
  }
  void stop() noexcept { next_.store(Length(columns_), std::memory_order_relaxed); }

  /// Computes the cells of a block in a buffer, divides them and puts them in both their places.
  void compute(Integer first, Integer last) {
    const auto n = columns_.size(), from = static_cast<std::size_t>(first),
               height = static_cast<std::size_t>(last) - from;
    std::vector<Double> cells(height * (n - from));
    std::vector<Double*> columns(n - from);
    for (std::size_t j = 0; j < columns.size(); ++j) columns[j] = cells.data() + j * height;
    zor::kernels::gram(columns_.data(), static_cast<std::size_t>(rows_), n, from, from + height, columns.data());
    for (std::size_t j = 0; j < columns.size(); ++j) {
      for (std::size_t i = 0; i < (std::min)(height, j + 1); ++i) {
        const Double cell = columns[j][i] / norm_;
        result_[static_cast<Integer>(from + i)].data()[from + j] = cell;
        result_[static_cast<Integer>(from + j)].data()[from + i] = cell;
      }
    }
    done_.fetch_add(last - first, std::memory_order_relaxed);
  }
  /// False if a worker saw an abort and left columns out, even if that was taken back since. Asked when all have ended.
  bool complete() const noexcept { return done_.load(std::memory_order_relaxed) == Length(columns_); }

 private:
  const TDynArray<const Double*>& columns_;
  Integer rows_;
  Double norm_;
  Integer block_;
  TDouble2DArray& result_;
  std::atomic<Integer> next_ = 0, done_ = 0;
};

/// On the calling thread; false if it was aborted.
bool square_here(GramWork& work) {
  for (Integer first, last; work.take(first, last);) {
    for (Integer c = first; c < last; ++c) {
      if (AbortMathProc) return false;
      zor::detail::feedback_step();
    }
    work.compute(first, last);
  }
  return true;
}

/// Takes blocks of columns until none is left or the computation is to stop.
class TMatSq1ColThread : public TThread {
 public:
  explicit TMatSq1ColThread(GramWork& work) : work_(work) {}
  ~TMatSq1ColThread() override { EndThread(); }

 protected:
  void Execute() override {
    for (Integer first, last; !Terminated() && !AbortMathProc && work_.take(first, last);) {
      work_.compute(first, last);
      ProcStat += static_cast<Double>(last - first);
    }
  }

 private:
  GramWork& work_;
};

/// Ends the threads before what they work on goes.
class Workers {
 public:
  Workers(GramWork& work, Integer count) : work_(work) {
    for (Integer i = 0; i < count; ++i) {
      auto thread = std::make_unique<TMatSq1ColThread>(work);
      try {
        thread->Start();
      } catch (const EOutOfMemory&) {
        break;  // fewer have to do
      }
      threads_.push_back(std::move(thread));
    }
  }
  ~Workers() { work_.stop(); }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  bool none() const noexcept { return threads_.empty(); }
  bool finished() const noexcept {
    return std::ranges::all_of(threads_, [](const auto& thread) { return thread->Finished(); });
  }
  void wait() {
    for (const auto& thread : threads_) thread->WaitFor();
  }

 private:
  GramWork& work_;
  std::vector<std::unique_ptr<TMatSq1ColThread>> threads_;
};

bool square_on_workers(GramWork& work, Integer count) {
  Workers workers(work, count);
  if (workers.none()) return square_here(work);
  bool aborted = false;
  while (!aborted && zor::detail::feedback_listens()) {
    MathFeedBackProc(ProcStat);
    aborted = AbortMathProc;
    if (workers.finished()) break;
    std::this_thread::yield();
  }
  if (aborted) work.stop();
  workers.wait();
  if (aborted || AbortMathProc || !work.complete()) return false;
  MathFeedBackProc(ProcStat);
  return true;
}

}  // namespace

Boolean TMatrix::Square(TMatrix* MatRes, Double Norm, Integer NThreads) const {
  if (!MatRes || MatRes == this || Norm == 0.0 || !std::isfinite(Norm)) return false;
  const T2DArray held = Mat;  // the cells stay while handlers run
  const TDynArray<const Double*> columns = column_pointers();
  const Integer n = FNCol, rows = FNRow;
  T2DArray made;
  zor::detail::heap_guard(
      *this, [&] { zor::detail::set_length_unset(made, zor::detail::to_size(n), zor::detail::to_size(n)); });
  MatRes->Resize(n, n);
  const Integer threads = (std::min)({NThreads, CPUCount(), n});
  GramWork work(columns, rows, Norm, block_for(threads), made);
  if (!(threads > 1 ? square_on_workers(work, threads) : square_here(work))) return false;
  if (MatRes->FNCol == n && MatRes->FNRow == n) MatRes->swap_cells(made);
  return true;
}

Boolean TMatrix::Square(TMatrix* MatRes, Double Norm) const {
  return Square(MatRes, Norm, (std::max)(CPUCount() - 1, 1));
}

}  // namespace ZOR_matrix

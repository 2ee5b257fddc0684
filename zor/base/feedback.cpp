#include "zor/base/feedback.h"

namespace ZOR_zorbase {

constinit TSharedVar<TMathFeedBackProc> MathFeedBackProc{nullptr};
constinit TSharedVar<ZOR_runtime::Boolean> AbortMathProc{false};
constinit TSharedVar<ZOR_runtime::Double> ProcStat{0.0};

}  // namespace ZOR_zorbase

namespace zor::detail {

void feedback_step(double steps) {
  const double total = ZOR_zorbase::ProcStat += steps;
  ZOR_zorbase::MathFeedBackProc(total);
}

void feedback_steps(std::size_t count) {
  if (!feedback_listens()) {
    ZOR_zorbase::ProcStat += static_cast<double>(count);
    return;
  }
  for (; count > 0; --count) feedback_step();
}

bool feedback_step_aborts(double steps) {
  feedback_step(steps);
  return ZOR_zorbase::AbortMathProc;
}

}  // namespace zor::detail

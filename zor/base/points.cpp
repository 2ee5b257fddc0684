#include "zor/base/points.h"

#include <ostream>

#include "zor/runtime/print.h"

namespace ZOR_zorbase {
namespace {

template <class P>
std::ostream& print(std::ostream& out, const P& point) {
  using zor::detail::cell_text;
  return out << '(' << cell_text(point.x) << ", " << cell_text(point.y) << ')';
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const TPointDouble& point) { return print(out, point); }
std::ostream& operator<<(std::ostream& out, const TPoint& point) { return print(out, point); }

}  // namespace ZOR_zorbase

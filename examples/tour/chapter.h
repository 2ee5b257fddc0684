#pragma once

#include <string>
#include <vector>

#include "examples/tour/page.h"

/// \file  The chapters of the tour.
/// A chapter is one file of this folder, of at most 150 lines, that registers itself under the stem of its file name:
///
///     void run(tour::Page& page) { ... }
///     const tour::Register chapter({100, "series", "What is in a series?", run});

namespace tour {

struct Chapter {
  int order;  // chapters run in ascending order
  std::string name, title;
  void (*run)(Page&);
};

/// All chapters of the program, in their order.
std::vector<Chapter> chapters();

/// Adds a chapter while it is constructed.
struct Register {
  explicit Register(Chapter chapter);
};

}  // namespace tour

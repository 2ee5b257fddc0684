#pragma once

#include <string_view>

namespace tour {

/// The style sheet of the report; that of the charts comes before it.
std::string_view report_style();

}  // namespace tour

#pragma once

#include <filesystem>

namespace zor::test {

/// The folder with the sources: tests read their data from there.
std::filesystem::path source_dir();

}  // namespace zor::test

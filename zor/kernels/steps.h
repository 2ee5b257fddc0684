#pragma once

/// \file  How long work asks whether to go on.

namespace zor::kernels {

/// Called once for each step of the work; true asks for an end. What it throws leaves the kernel, whose results are
/// then those of the interrupted work.
using StepAborts = bool (*)();

}  // namespace zor::kernels

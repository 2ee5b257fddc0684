#pragma once

/// \file  Forward declaration of the Fourier transform.

namespace ZOR_fourier {

class TFastFourier;

}  // namespace ZOR_fourier

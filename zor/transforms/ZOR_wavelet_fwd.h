#pragma once

/// \file  Forward declaration of the wavelet transform.

namespace ZOR_wavelet {

class TWavelet1D;

}  // namespace ZOR_wavelet

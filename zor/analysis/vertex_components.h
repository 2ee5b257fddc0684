#pragma once

#include "zor/analysis/math2_errors.h"
#include "zor/matrices/matrix.h"

/// \file  End members of mixtures.

namespace ZOR_math2 {

using namespace ZOR_zorbase;
using ZOR_matrix::TMatrix;

/// Vertex component analysis (J. M. P. Nascimento, J. M. Bioucas Dias, IEEE Trans. Geosci. Remote Sens. 43 (2005),
/// 898): takes the rows of InMat for mixtures of NumComp pure spectra and finds rows that are the purest. M1 gets them
/// (NumComp rows), Indices their numbers, counted from 1, M2 all rows as far as NumComp components describe them (size
/// of InMat). Without Flag the signal-to-noise ratio is estimated, and below 15 + 10 lg(NumComp) dB the centred
/// projection on NumComp
/// - 1 dimensions is taken; with Flag always the projective one. Directions come from `ZOR_runtime::Random`. All
/// results may be null. Throws EZORMath2Error "VertexCompAnalysis: invalid number of components" unless 2 <= NumComp <=
/// min(rows, columns), also for null.
ZOR_API void VertexCompAnalysis(const TMatrix* InMat, Integer NumComp, Boolean Flag, TMatrix* M1,
                                ZOR_vector::TIntVector* Indices, TMatrix* M2);

}  // namespace ZOR_math2

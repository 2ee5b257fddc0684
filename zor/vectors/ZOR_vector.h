#pragma once

#include "zor/base/ZOR_zorbase.h"
#include "zor/vectors/ZOR_vector_fwd.h"
#include "zor/vectors/vector.h"

/// \file  Vectors with change events: TVector of doubles and TIntVector of 32-bit integers.
/// Elements count from 1, and there is always at least one. A bad element number never raises: reading gives 0, writing
/// is ignored. A range is first and last element, both inclusive; (0, 0) means the whole vector, bounds outside are
/// moved to the nearest element, reversed bounds are exchanged (MakeValidElemRange). Exceptions
/// are Histogram, which takes its bounds as they stand, and TIntVector::StoreOnFile, where (0, 0) writes no value.
/// Events are told on the caller's thread when the data has its new state, OnChange before OnResize. One vector may be
/// used by one thread at a time.
///
///     using namespace ZOR_vector;
///     TVector v;
///     v.SetNrOfElem(5);
///     v.FillSerial(1.0, 0.5);                  // 1, 1.5, 2, 2.5, 3
///     double mean, variance;
///     v.MeanVar(0, 0, mean, variance);         // 2 and 0.625
///     std::cout << v << mean << '\n';

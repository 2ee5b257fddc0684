#pragma once

#include "zor/vectors/store_internal.h"

/// \file  The way to put results into a vector, by its former name.

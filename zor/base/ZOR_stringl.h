#pragma once

#include "zor/base/quoted_name.h"
#include "zor/base/stringl_text.h"
#include "zor/base/tags.h"

/// \file  Routines on text: numbers in fixed notation, look-up, trimming, splitting, quoted names, tags.
/// Positions count from 1. Upper and lower case follow Unicode, never the locale.
///
///     using namespace ZOR_stringl;
///     const TString line = "  0.25 " + strff(0.125, 1, 2);   // "  0.25 0.12"
///     TStrArray words;
///     Tokenize(StripLTBlanks(line), " ", words);             // 2

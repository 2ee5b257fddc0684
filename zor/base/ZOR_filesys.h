#pragma once

#include "zor/base/text_reading.h"

/// \file  Reading of text files: the header of the ASC form, words.
///
///     using namespace ZOR_filesys;
///     TTextFile file("words.txt");
///     file.Reset();
///     for (TString word = ReadNextWordInTextFile(file); !word.empty(); word = ReadNextWordInTextFile(file)) use(word);

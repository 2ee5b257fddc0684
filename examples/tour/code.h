#pragma once

#include <string>
#include <string_view>
#include <vector>

/// \file  The code that the report shows, cut out of the sources of the chapters.

namespace tour {

/// Source text of the chapter, as it was when the program was built; empty if there is no such chapter.
std::string_view chapter_source(std::string_view chapter);

/// What stands between each line `// [show]` and the next `// [/show]`, without common indentation.
std::vector<std::string> shown_parts(std::string_view source);

/// C++ as HTML, with comments, texts, numbers and keywords in spans of class "k-comment" and so on.
std::string highlighted(std::string_view code);

}  // namespace tour

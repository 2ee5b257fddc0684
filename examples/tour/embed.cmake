# cmake -DOUTPUT=... -DFILES=a.cpp,b.cpp -P embed.cmake
# Writes the sources of the chapters into a C++ file, so that the program shows its code without the source tree.
set(table "")
string(REPLACE "," ";" files "${FILES}")
foreach(file IN LISTS files)
  get_filename_component(name "${file}" NAME_WE)
  file(READ "${file}" source)
  string(APPEND table "  if (chapter == \"${name}\") return R\"source(${source})source\";\n")
endforeach()
file(WRITE "${OUTPUT}"
"#include \"examples/tour/code.h\"

std::string_view tour::chapter_source([[maybe_unused]] std::string_view chapter) {
${table}  return {};
}
")

#include "examples/tour/code.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "examples/plot/markup.h"

namespace tour {
namespace {

std::string_view trimmed(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line.substr(0, line.find_last_not_of(" \t\r") + 1);
}

std::string without_indent(const std::vector<std::string_view>& lines) {
  std::size_t indent = std::string_view::npos;
  for (const auto line : lines)
    if (!trimmed(line).empty()) indent = std::min(indent, line.find_first_not_of(' '));
  std::string out;
  for (const auto line : lines) {
    out += line.substr(std::min(indent, line.size()));
    out += '\n';
  }
  return out;
}

bool is_word(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// Length of the piece at the start of `code` that is coloured as one, and its class; none for plain text.
std::size_t piece(std::string_view code, std::string_view& kind) {
  static const std::set<std::string_view> kKeywords = {
      "auto",     "bool", "break", "case",   "const", "constexpr", "continue", "double", "else",   "false",
      "for",      "if",   "int",   "lambda", "new",   "nullptr",   "return",   "static", "struct", "switch",
      "template", "true", "using", "void",   "while", "namespace", "char",     "sizeof", "do"};
  kind = {};
  if (code.starts_with("//")) {
    kind = "comment";
    return std::min(code.find('\n'), code.size());
  }
  if (code.front() == '"' || code.front() == '\'') {
    kind = "text";
    std::size_t end = 1;
    while (end < code.size() && code[end] != code.front()) end += code[end] == '\\' ? 2 : 1;
    return std::min(end + 1, code.size());
  }
  if (!is_word(code.front())) return 1;
  const bool digit = std::isdigit(static_cast<unsigned char>(code.front()));
  std::size_t end = 1;
  while (end < code.size() && (is_word(code[end]) || (digit && code[end] == '.'))) ++end;
  if (digit)
    kind = "number";
  else if (kKeywords.contains(code.substr(0, end)))
    kind = "keyword";
  return end;
}

}  // namespace

std::vector<std::string> shown_parts(std::string_view source) {
  std::vector<std::string> parts;
  std::vector<std::string_view> lines;
  bool inside = false;
  while (!source.empty()) {
    const auto end = std::min(source.find('\n'), source.size());
    const auto line = source.substr(0, end);
    source.remove_prefix(std::min(end + 1, source.size()));
    if (trimmed(line) == "// [show]") {
      inside = true;
      lines.clear();
    } else if (trimmed(line) == "// [/show]") {
      if (inside) parts.push_back(without_indent(lines));
      inside = false;
    } else if (inside) {
      lines.push_back(line);
    }
  }
  return parts;
}

std::string highlighted(std::string_view code) {
  std::string out;
  while (!code.empty()) {
    std::string_view kind;
    const std::size_t length = piece(code, kind);
    const std::string text = plot::escaped(code.substr(0, length));
    out += kind.empty() ? text : "<span class=\"k-" + std::string(kind) + "\">" + text + "</span>";
    code.remove_prefix(length);
  }
  return out;
}

}  // namespace tour

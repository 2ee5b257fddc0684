#include "zor/base/asc_codec.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>

#include "zor/runtime/number_reader.h"

namespace zor::detail {
namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

// What stands before the tab or semicolon that begins the remark of a header line.
std::string_view without_remark(std::string_view line) {
  line = line.substr(0, line.find(';'));
  const std::size_t first = line.find_first_not_of(kBlanks);
  if (first == line.npos) return {};
  return line.substr(0, line.find('\t', first));
}

bool parse_count(std::string_view line, Integer& count) {
  const std::string_view digits = strip_blanks(without_remark(line));
  const auto number = parse_integer(digits, 0, std::numeric_limits<Integer>::max());
  if (!number || number.end != digits.size()) return false;
  count = static_cast<Integer>(number.value);
  return true;
}

bool equals_upper(std::string_view word, std::string_view upper) {
  return std::equal(word.begin(), word.end(), upper.begin(), upper.end(),
                    [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b; });
}

bool parse_flags(std::string_view line, AscHeader& header) {
  std::string_view rest = without_remark(line);
  std::array<bool, 4> flags{};
  std::size_t n = 0;
  for (;; ++n) {
    const std::size_t first = rest.find_first_not_of(kBlanks);
    if (first == rest.npos) break;
    rest.remove_prefix(first);
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    rest.remove_prefix(word.size());
    const bool is_true = equals_upper(word, "TRUE");
    if (n == flags.size() || (!is_true && !equals_upper(word, "FALSE"))) return false;
    flags[n] = is_true;
  }
  if (n < 3) return false;
  header.RowAttrib = flags[0], header.ColNames = flags[1], header.RowNames = flags[2], header.NomVars = flags[3];
  return true;
}

void write_without_breaks(TTextFile& file, const TString& text, char quote) {
  std::string line = text.utf8();
  for (char& c : line) {
    if (c == '\n' || c == '\r') c = ' ';
    if (c == '"' && quote == '"') c = '\'';
  }
  file.Write(std::string_view(line));
}

}  // namespace

Integer read_asc_header(TTextFile& file, AscHeader& header) {
  std::string_view line;
  header = {};
  if (!file.read_line(line)) return kAscTooShort;
  header.Comment = line;
  // All four lines must be there before the contents of one are judged.
  std::array<std::string, 3> lines;
  for (std::string& text : lines) {
    if (!file.read_line(line)) return kAscTooShort;
    text = line;
  }
  if (!parse_count(lines[0], header.NrCols) || !parse_count(lines[1], header.NrRows)) return kAscBadCount;
  return parse_flags(lines[2], header) ? 0 : kAscBadFlags;
}

void write_asc_header(TTextFile& file, const AscHeader& header, Integer flags) {
  const auto word = [](Boolean flag) { return flag ? "TRUE" : "FALSE"; };
  write_without_breaks(file, header.Comment, 0);
  file.Write("\n");
  file.WriteInteger(header.NrCols);
  file.Write("\t;nr. of columns\n");
  file.WriteInteger(header.NrRows);
  file.Write("\t;nr. of rows\n");
  file.Write(word(header.RowAttrib));
  for (const Boolean flag : {header.ColNames, header.RowNames}) {
    file.Write(" ");
    file.Write(word(flag));
  }
  if (flags == 3) {
    file.Write("\t;row attributes, column names, row names\n");
  } else {
    file.Write(" ");
    file.Write(word(header.NomVars));
    file.Write("\t;row attributes, column names, row names, nominal variables\n");
  }
}

Integer asc_rows_to_read(const AscHeader& header, TTextFile& file) {
  const Int64 most = std::min<Int64>(file.Remaining() + 1, std::numeric_limits<Integer>::max());
  return static_cast<Integer>(std::min<Int64>(header.NrRows, most));
}

void write_asc_name(TTextFile& file, const TString& name) {
  file.Write("\"");
  write_without_breaks(file, name, '"');
  file.Write("\"");
}

void write_asc_text(TTextFile& file, const TString& text) {
  std::string out = "\"";
  for (const char c : text.utf8()) {
    switch (c) {
      case '\\':
        out += "\\\\";
        break;
      case '"':
        out += "\\\"";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        out += c;
    }
  }
  file.Write(out + '"');
}

Boolean read_asc_text(TTextFile& file, TString& text) {
  file.skip_blanks();
  if (file.read_byte() != '"') return false;
  std::string bytes;
  for (int c = file.read_byte(); c != '"'; c = file.read_byte()) {
    if (c == '\\') {
      c = file.read_byte();
      if (c == 'n') c = '\n';
      if (c == 't') c = '\t';
    }
    if (c < 0) return false;
    bytes += static_cast<char>(c);
  }
  text = bytes;
  return true;
}

Boolean read_asc_name(TTextFile& file, TString& name) {
  std::string bytes;
  int c = 0;
  do c = file.read_byte();
  while (c >= 0 && c != '"');
  if (c < 0) {
    name.clear();
    return false;
  }
  while ((c = file.read_byte()) >= 0 && c != '"') bytes += static_cast<char>(c);
  name = bytes;
  return c == '"';
}

void read_asc_column_names(TTextFile& file, Integer count, TString* names) {
  file.skip_blanks();
  if (names) std::fill_n(names, std::max(count, 0), TString());
  if (file.peek_byte() == '"') {
    TString dropped;
    for (Integer i = 0; i < count; ++i) {
      if (!read_asc_name(file, names ? names[i] : dropped)) return;
    }
  } else {
    std::string_view line;
    file.read_line(line);
    for (Integer i = 0; names && i < count; ++i) {
      const std::size_t first = std::min(line.find_first_not_of(kBlanks), line.size());
      line.remove_prefix(first);
      const std::string_view name = line.substr(0, line.find_first_of(kBlanks));
      names[i] = name;
      line.remove_prefix(name.size());
    }
  }
}

Integer read_asc_row_head(TTextFile& file, const AscHeader& header, Double* attribute, TString* name) {
  if (header.RowAttrib) {
    Double dropped = 0.0;
    if (!file.ReadFloat(attribute ? *attribute : dropped)) return kAscBadAttribute;
  }
  if (header.RowNames) {
    TString dropped;
    read_asc_name(file, name ? *name : dropped);
  }
  return 0;
}

AscCell read_asc_cell(TTextFile& file, Double& value) {
  std::string_view word;
  if (file.read_number(value, word)) return AscCell::kNumber;
  if (word != "NAN" && word != "###") return AscCell::kBad;
  value = 0.0;
  return AscCell::kMissing;
}

}  // namespace zor::detail

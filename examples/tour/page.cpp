#include "examples/tour/page.h"

#include <algorithm>
#include <stdexcept>

#include "examples/plot/markup.h"
#include "examples/tour/code.h"

namespace tour {
namespace {

// Escaped text in which every second run between back quotes is code.
std::string inline_text(std::string_view text) {
  std::string out;
  bool code = false;
  for (const char c : plot::escaped(text)) {
    if (c != '`') {
      out += c;
      continue;
    }
    code = !code;
    out += code ? "<code>" : "</code>";
  }
  if (code) out += "</code>";
  return out;
}

}  // namespace

Page::Page(std::filesystem::path data, std::filesystem::path scratch, std::vector<std::string> code)
    : data_(std::move(data)), scratch_(std::move(scratch)), code_(std::move(code)) {}

std::filesystem::path Page::data(const std::string& file) {
  if (std::find(files_.begin(), files_.end(), file) == files_.end()) files_.push_back(file);
  return data_ / file;
}

std::filesystem::path Page::scratch(const std::string& file) {
  std::filesystem::create_directories(scratch_);
  return scratch_ / file;
}

std::uint64_t Page::seed(std::uint64_t value) {
  seeds_.push_back(value);
  return value;
}

void Page::close_step() {
  if (!in_step_) return;
  html_ += "<div class=\"beside\">\n" + beside_ + "</div>\n</div>\n";
  beside_.clear();
  in_step_ = false;
}

void Page::section(std::string_view title) {
  close_step();
  html_ += "<h3>" + inline_text(title) + "</h3>\n";
}

void Page::prose(std::string_view text) {
  close_step();
  while (!text.empty()) {
    const auto end = std::min(text.find("\n\n"), text.size());
    html_ += "<p>" + inline_text(text.substr(0, end)) + "</p>\n";
    text.remove_prefix(std::min(end + 2, text.size()));
  }
}

void Page::code() {
  close_step();
  if (next_code_ == code_.size()) throw std::runtime_error("no further part of the source is marked to be shown");
  html_ += "<div class=\"step\">\n<pre tabindex=\"0\"><code>" + highlighted(code_[next_code_++]) + "</code></pre>\n";
  in_step_ = true;
}

void Page::figure(const plot::Chart& chart, std::string_view caption) {
  std::string figure = "<figure>\n" + chart.svg();
  if (!caption.empty()) figure += "<figcaption>" + inline_text(caption) + "</figcaption>\n";
  (in_step_ ? beside_ : html_) += figure + "</figure>\n";
}

void Page::table(const std::vector<std::string>& head, const std::vector<std::vector<std::string>>& rows) {
  std::string table = "<div class=\"scroll\" tabindex=\"0\"><table>\n<thead><tr>";
  for (const auto& cell : head) table += "<th scope=\"col\">" + inline_text(cell) + "</th>";
  table += "</tr></thead>\n<tbody>\n";
  for (const auto& row : rows) {
    table += "<tr>";
    for (std::size_t i = 0; i < row.size(); ++i)
      table += (i == 0 ? "<th scope=\"row\">" : "<td>") + inline_text(row[i]) + (i == 0 ? "</th>" : "</td>");
    table += "</tr>\n";
  }
  (in_step_ ? beside_ : html_) += table + "</tbody></table></div>\n";
}

std::string Page::html() const {
  return in_step_ ? html_ + "<div class=\"beside\">\n" + beside_ + "</div>\n</div>\n" : html_;
}

}  // namespace tour

#include "zor/runtime/string_list.h"

#include <algorithm>
#include <string>

#include "zor/runtime/text_file.h"

namespace ZOR_runtime {

using zor::detail::to_size;

const char* TStringList::ClassName() const noexcept { return "TStringList"; }

const TString& TStringList::Strings(Integer i) const noexcept {
  static const TString none;
  return contains(i) ? strings_[to_size(i)] : none;
}

void TStringList::SetStrings(Integer i, const TString& text) {
  if (contains(i)) strings_[to_size(i)] = text;
}

Integer TStringList::Add(const TString& text) {
  strings_.push_back(text);
  return Count() - 1;
}

void TStringList::Insert(Integer i, const TString& text) {
  if (i == Count() || contains(i)) strings_.insert(strings_.begin() + i, text);
}

void TStringList::Delete(Integer i) {
  if (contains(i)) strings_.erase(strings_.begin() + i);
}

Integer TStringList::IndexOf(const TString& text) const noexcept {
  const auto found = std::find(strings_.begin(), strings_.end(), text);
  return found == strings_.end() ? -1 : static_cast<Integer>(found - strings_.begin());
}

TString TStringList::Text() const {
  std::u16string all;
  for (const TString& text : strings_) (all += text.units()) += u'\n';
  return all;
}

void TStringList::SetText(const TString& text) {
  std::vector<TString> lines;
  std::u16string_view rest = text.units();
  while (!rest.empty()) {
    const std::size_t stop = rest.find(u'\n');
    std::u16string_view line = rest.substr(0, stop);
    rest.remove_prefix(stop == rest.npos ? rest.size() : stop + 1);
    if (stop != rest.npos && line.ends_with(u'\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  strings_.swap(lines);
}

void TStringList::LoadFromFile(const TString& FileName) {
  TTextFile file(FileName);
  file.Reset();
  std::vector<TString> lines;
  std::string_view line;
  if (file.Remaining() > 0) {
    // An empty line is one byte and a TString has 32: no list that grows, and is copied, as it is read. What has no
    // size, such as a pipe, can be read only once.
    std::size_t count = 0;
    while (file.read_line(line)) ++count;
    lines.reserve(count);
    file.SetPosition(0);
    file.Reset();
  }
  while (file.read_line(line)) lines.emplace_back(line);
  file.Close();
  strings_.swap(lines);
}

void TStringList::SaveToFile(const TString& FileName) const {
  TTextFile file(FileName);
  file.Replace();
  for (const TString& text : strings_) file.WriteLn(text);
  file.Close();
}

void TStringList::Assign(const TPersistent* Source) {
  if (const auto* list = dynamic_cast<const TStringList*>(Source)) {
    strings_ = std::vector<TString>(list->strings_);
  } else {
    TPersistent::Assign(Source);
  }
}

}  // namespace ZOR_runtime

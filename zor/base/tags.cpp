#include "zor/base/tags.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zor::detail {
namespace {

using ZOR_runtime::Int64;
using ZOR_runtime::Integer;
using ZOR_runtime::TString;
using ZOR_runtime::TTextFile;

// The two sources of text. A source hands out one unit after the other, -1 at the end, and can go back to a place.
class StringSource {
 public:
  using Unit = char16_t;
  StringSource(std::u16string_view text, std::size_t place) : text_(text), at_(std::min(place, text.size())) {}
  int peek() const { return at_ < text_.size() ? text_[at_] : -1; }
  int get() { return at_ < text_.size() ? text_[at_++] : -1; }
  std::size_t place() const { return at_; }
  void go_back(std::size_t place) { at_ = place; }

 private:
  std::u16string_view text_;
  std::size_t at_;
};

class FileSource {
 public:
  using Unit = char;
  explicit FileSource(TTextFile& file) : file_(file) {}
  int peek() { return file_.peek_byte(); }
  int get() { return file_.read_byte(); }
  Int64 place() const { return file_.Position(); }
  void go_back(Int64 place) { file_.SetPosition(place); }

 private:
  TTextFile& file_;
};

template <class Unit>
struct Tag {
  std::basic_string<Unit> name, attributes;
  bool alone = false;  // <tag/>
  bool is_end() const { return name.front() == '/'; }
};

template <class Text>
Text trimmed(Text text) {
  const auto blank = [](auto c) { return is_blank_byte(static_cast<int>(c)); };
  text.erase(std::find_if_not(text.rbegin(), text.rend(), blank).base(), text.end());
  text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), blank));
  return text;
}

bool is_plain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// A name as it compares with others: bytes that are no UTF-8 stand for U+FFFD, whichever they are.
void make_comparable(std::u16string&) {}
void make_comparable(std::string& name) {
  if (!is_plain(name)) name = TString(name).utf8();
}

// Finds the tags in a source and keeps the text between them on request.
template <class Source>
class TagScanner {
 public:
  using Unit = typename Source::Unit;
  using Text = std::basic_string<Unit>;

  explicit TagScanner(Source& source) : source_(source) {}

  // Reads up to the end of the next tag; false if there is none. A tag that the text ends in is none.
  bool next(Tag<Unit>& tag) {
    int c = get();
    for (;;) {
      while (c >= 0 && c != '<') c = get();
      if (c < 0) return false;
      tag_start_ = kept_.size() - (keeping_ ? 1 : 0);
      c = get();
      if (c == '!') {
        skip_declaration();
        c = get();
      } else if (c == '?') {
        skip_behind('?', '?', false);
        c = get();
      } else if (starts_name(c) && read_tag(c, tag)) {
        return true;
      }
    }
  }

  void keep(bool on) {
    keeping_ = on;
    kept_.clear();
  }
  // The text kept up to the last tag.
  Text text_before_tag() const { return kept_.substr(0, tag_start_); }

 private:
  static bool starts_name(int c) { return c >= 0 && c != '<' && c != '>' && !is_blank_byte(c); }

  int get() {
    const int c = source_.get();
    if (keeping_ && c >= 0) kept_ += static_cast<Unit>(c);
    return c;
  }

  // Reads name and attributes; c is the first unit of the name, at return the one that ended the tag. False if that is
  // a "<", which begins another tag, or the end of the text.
  bool read_tag(int& c, Tag<Unit>& tag) {
    tag.name.clear(), tag.attributes.clear();
    do {
      tag.name += static_cast<Unit>(c);
      c = get();
    } while (starts_name(c) && c != '/');
    make_comparable(tag.name);
    int quote = 0;
    for (; c >= 0 && (quote || (c != '>' && c != '<')); c = get()) {
      if (quote ? c == quote : c == '"' || c == '\'') quote = quote ? 0 : c;
      tag.attributes += static_cast<Unit>(c);
    }
    if (c != '>') return false;
    tag.attributes = trimmed(std::move(tag.attributes));
    tag.alone = tag.attributes.ends_with(Unit{'/'});
    if (tag.alone) {
      tag.attributes.pop_back();
      tag.attributes = trimmed(std::move(tag.attributes));
    }
    return true;
  }

  // Passes over what follows "<!".
  void skip_declaration() {
    if (source_.peek() == '-') {
      get();
      if (source_.peek() == '-') {
        get();
        return skip_behind('-', '-', true);
      }
    } else if (source_.peek() == '[') {
      return skip_behind(']', ']', true);
    }
    int quote = 0, depth = 0;
    for (int c = get(); c >= 0 && (quote || depth > 0 || c != '>'); c = get()) {
      if (quote) {
        if (c == quote) quote = 0;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else {
        depth += c == '[' ? 1 : c == ']' && depth > 0 ? -1 : 0;
      }
    }
  }

  // Passes over the text up to a ">" with `last` before it and, if asked for, `second` before that.
  void skip_behind(int second, int last, bool both) {
    int a = 0, b = 0;
    for (int c = get(); c >= 0; c = get()) {
      if (c == '>' && b == last && (!both || a == second)) return;
      a = b, b = c;
    }
  }

  Source& source_;
  Text kept_;
  std::size_t tag_start_ = 0;
  bool keeping_ = false;
};

bool same(std::u16string_view name, const TString& listed) { return name == listed.units(); }

bool same(std::string_view name, const TString& listed) {
  const auto units = listed.units();
  if (std::equal(name.begin(), name.end(), units.begin(), units.end(),
                 [](char a, char16_t b) { return static_cast<unsigned char>(a) == b && b < 0x80; })) {
    return true;
  }
  return !is_plain(name) && TString(name) == listed;
}

template <class Text>
Integer index_of(const Text& name, std::span<const TString> tags) {
  const auto found = std::find_if(tags.begin(), tags.end(), [&](const TString& t) { return same(name, t); });
  return found == tags.end() ? -1 : static_cast<Integer>(found - tags.begin());
}

// Reads element after element out of one source.
template <class Source>
class ElementReader {
 public:
  // With `further` calls to come, text without end tags is noted at the first one that is missing.
  ElementReader(Source source, std::span<const TString> tags, bool further)
      : source_(source), tags_(tags), further_(further) {}

  Integer next(TString& attr, TString& content) {
    TString found_attr, found_content;  // attr and content may be the text that is read
    const Integer result = find(found_attr, found_content);
    attr = std::move(found_attr), content = std::move(found_content);
    return result;
  }
  auto place() const { return source_.place(); }

 private:
  using Unit = typename Source::Unit;
  using Text = std::basic_string<Unit>;
  using Place = decltype(std::declval<const Source&>().place());

  Integer find(TString& attr, TString& content) {
    if (tags_.empty()) return -1;
    const Integer other = static_cast<Integer>(tags_.size()) - 1;
    TagScanner<Source> scanner(source_);
    Tag<Unit> tag;
    while (scanner.next(tag)) {
      const Integer index = index_of(tag.name, tags_);
      const bool listed = index >= 0;
      if (tag.is_end() && !listed) continue;
      if (listed) attr = tag.attributes;
      if (tag.alone || tag.is_end()) return listed ? index : other;
      const Text name = std::move(tag.name), end_name = Unit{'/'} + name;
      if (listed && index_of(end_name, tags_) >= 0) return index;
      if (!read_to_end(scanner, name, end_name, listed)) return other;
      if (!listed) return other;
      content = scanner.text_before_tag();
      return index;
    }
    return other;
  }

  // Reads up to the end tag that belongs to the opening tag just read. Without one, goes back behind the opening tag.
  bool read_to_end(TagScanner<Source>& scanner, const Text& name, const Text& end_name, bool keep) {
    const Place behind_opening = source_.place();
    if (std::binary_search(unclosed_.begin(), unclosed_.end(), behind_opening)) return false;
    Tag<Unit> tag;
    scanner.keep(keep);
    for (std::size_t depth = 1; depth > 0;) {
      if (!scanner.next(tag)) {
        source_.go_back(behind_opening);
        if (further_) {
          find_unclosed();
          source_.go_back(behind_opening);
        }
        return false;
      }
      if (tag.name == end_name) {
        --depth;
      } else if (tag.name == name && !tag.alone) {
        ++depth;
      }
    }
    return true;
  }

  // Notes the places behind all opening tags from here on that have no end tag. Without these a text of nothing but
  // opening tags would be read to its end again for each of them.
  void find_unclosed() {
    std::unordered_map<Text, std::vector<Place>> open;
    TagScanner<Source> scanner(source_);
    Tag<Unit> tag;
    unclosed_ = {source_.place()};
    while (scanner.next(tag)) {
      if (tag.is_end()) {
        const auto found = open.find(tag.name.substr(1));
        if (found != open.end() && !found->second.empty()) found->second.pop_back();
      } else if (!tag.alone) {
        open[tag.name].push_back(source_.place());
      }
    }
    for (const auto& [name, places] : open) unclosed_.insert(unclosed_.end(), places.begin(), places.end());
    std::sort(unclosed_.begin(), unclosed_.end());
  }

  Source source_;
  std::span<const TString> tags_;
  bool further_;
  std::vector<Place> unclosed_;
};

}  // namespace

struct TagReader::Reader {
  std::vector<TString> tags;
  TString text;
  std::optional<ElementReader<StringSource>> in_string;
  std::optional<ElementReader<FileSource>> in_file;
};

TagReader::TagReader(TTextFile& file, std::span<const TString> tags) : reader_(std::make_unique<Reader>()) {
  reader_->tags.assign(tags.begin(), tags.end());
  reader_->in_file.emplace(FileSource(file), reader_->tags, true);
}

TagReader::TagReader(const TString& text, Integer place, std::span<const TString> tags)
    : reader_(std::make_unique<Reader>()) {
  reader_->tags.assign(tags.begin(), tags.end());
  reader_->text = text;
  reader_->in_string.emplace(StringSource(reader_->text.units(), to_size(Int64{place} - 1)), reader_->tags, true);
}

TagReader::~TagReader() = default;

Integer TagReader::next(TString& attr, TString& content) {
  return reader_->in_file ? reader_->in_file->next(attr, content) : reader_->in_string->next(attr, content);
}

Int64 TagReader::place() const {
  return reader_->in_file ? reader_->in_file->place() : static_cast<Int64>(reader_->in_string->place()) + 1;
}

}  // namespace zor::detail

namespace ZOR_stringl {

Integer ReadNextTagInString(const TString& S, Integer& Ix, std::span<const TString> Tags, TString& Attr,
                            TString& Content) {
  using namespace zor::detail;
  ElementReader reader(StringSource(S.units(), to_size(Int64{Ix} - 1)), Tags, false);
  const Integer result = reader.next(Attr, Content);
  if (result >= 0) Ix = to_integer(reader.place() + 1);
  return result;
}

}  // namespace ZOR_stringl

namespace ZOR_streams {

Integer ReadNextTagInTextFile(TTextFile& F, std::span<const TString> Tags, TString& Attr, TString& Content) {
  using namespace zor::detail;
  return ElementReader(FileSource(F), Tags, false).next(Attr, Content);
}

}  // namespace ZOR_streams

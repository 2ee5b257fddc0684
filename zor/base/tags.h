#pragma once

#include <memory>
#include <span>

#include "zor/base/ZOR_zorbase.h"

/// \file  Readers of tagged text: one element after the other, out of a string or a text file.
/// An element is `<tag attributes>content</tag>` or `<tag attributes/>`. Names match exactly, case included. Inner
/// elements of the same name nest. A ">" inside a quoted attribute does not end the tag. Declarations (`<?...?>`,
/// `<!...>`) and comments are passed over, and so is an end tag that is not in the list. Entities are not decoded.
///
/// Tags lists the names; its last entry stands for what is not in the list. If the list also has "/tag", the tags
/// `<tag>` and `</tag>` each count alone: Content is empty and reading goes on behind the ">". The result is the index
/// in Tags, from 0. Attr is the text behind the name, without the blanks around it and the "/" of `<tag/>`.
///
/// The result is the last index
/// - for an element that is not in the list: reading goes on behind the whole element, Attr and Content are empty;
/// - for an element without its end tag: reading goes on behind its opening tag, Content is empty;
/// - if no element is left: reading is at the end, Attr and Content are empty.
/// With an empty list nothing is read and the result is -1. The time is proportional to the text that is read.
///
///     TString attr, content;
///     Integer ix = 1;
///     const TString tags[] = {"x", "y", "$invalidtag$"};
///     ReadNextTagInString("<y id=\"1\">2</y>", ix, tags, attr, content);   // 1; id="1", 2; ix is 16

namespace ZOR_stringl {

using namespace ZOR_zorbase;

/// Reads the next element from position Ix on, which counts from 1; Ix moves behind it, at the end to Length(S) + 1. An
/// Ix below 1 counts as 1.
ZOR_API Integer ReadNextTagInString(const TString& S, Integer& Ix, std::span<const TString> Tags, TString& Attr,
                                    TString& Content);

}  // namespace ZOR_stringl

namespace ZOR_streams {

using namespace ZOR_zorbase;

/// The same from the place of reading of a text file, which stops right behind the ">", also inside a line.
ZOR_API Integer ReadNextTagInTextFile(TTextFile& F, std::span<const TString> Tags, TString& Attr, TString& Content);

}  // namespace ZOR_streams

namespace zor::detail {

/// Reads element after element, as the routines above do. Readers of whole documents take this: the time of all calls
/// together is proportional to the text, also where end tags are missing.
class ZOR_API TagReader {
 public:
  /// From the place of reading of a file, which nobody else moves meanwhile.
  TagReader(ZOR_runtime::TTextFile& file, std::span<const ZOR_runtime::TString> tags);
  /// From a place in a text, counted from 1.
  TagReader(const ZOR_runtime::TString& text, ZOR_runtime::Integer place, std::span<const ZOR_runtime::TString> tags);
  ~TagReader();

  ZOR_runtime::Integer next(ZOR_runtime::TString& attr, ZOR_runtime::TString& content);
  /// Position behind what was read: in the file from 0, in the text from 1.
  ZOR_runtime::Int64 place() const;

 private:
  struct Reader;
  std::unique_ptr<Reader> reader_;
};

}  // namespace zor::detail

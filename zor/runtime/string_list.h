#pragma once

#include <vector>

#include "zor/runtime/object.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

namespace ZOR_runtime {

/// List of texts, counted from 0.
///
///     TStringList names;
///     names.Add("first");
///     names.SaveToFile("names.txt");
class ZOR_API TStringList : public TPersistent {
 public:
  using value_type = TString;
  using const_iterator = std::vector<TString>::const_iterator;

  Integer Count() const noexcept { return zor::detail::to_integer(strings_.size()); }
  /// Text number i; "" outside.
  const TString& Strings(Integer i) const noexcept;
  /// Replaces text number i; nothing outside.
  void SetStrings(Integer i, const TString& text);

  /// Appends a text and returns its number.
  Integer Add(const TString& text);
  /// Puts a text before number i, or at the end if i is Count; nothing outside.
  void Insert(Integer i, const TString& text);
  /// Takes number i out; nothing outside.
  void Delete(Integer i);
  void Clear() noexcept { strings_.clear(); }
  /// Number of the first text equal to this one, case included; -1 if there is none.
  Integer IndexOf(const TString& text) const noexcept;

  /// All texts, each with a line feed behind it.
  TString Text() const;
  /// Replaces the list by the lines of a text, which end with LF or CRLF; the last one may lack its end.
  void SetText(const TString& text);
  /// Replaces the list by the lines of a file in UTF-8; raises EInOutError, and leaves the list as it was, if the file
  /// cannot be read.
  void LoadFromFile(const TString& FileName);
  /// Writes the texts as lines; raises EInOutError, and leaves the old file, if that fails. A line feed inside a text
  /// comes back as two texts.
  void SaveToFile(const TString& FileName) const;

  /// Copies another list; other sources as TPersistent.
  void Assign(const TPersistent* Source) override;
  const char* ClassName() const noexcept override;

  const_iterator begin() const noexcept { return strings_.begin(); }
  const_iterator end() const noexcept { return strings_.end(); }

 private:
  bool contains(Integer i) const noexcept { return i >= 0 && zor::detail::to_size(i) < strings_.size(); }

  std::vector<TString> strings_;
};

}  // namespace ZOR_runtime

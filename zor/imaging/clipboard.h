#pragma once

#include "zor/imaging/bitmap.h"

/// \file  The clipboard: one place inside the process where a text or a picture can be left for somebody else. No
/// window system is asked.
///
///     Clipboard().Assign(&bitmap);
///     other.Assign(&Clipboard());     // the same pixels

namespace ZOR_imaging {

/// Holds one text, one picture, or nothing; what comes in replaces what was there. Calls from several threads are
/// allowed.
class ZOR_API TClipboard : public ZOR_runtime::TPersistent {
 public:
  /// Takes a copy of a picture, or of what another clipboard holds.
  void Assign(const TPersistent* Source) override;
  /// Assigns the picture that the clipboard holds to another picture; raises EConvertError if there is none.
  void AssignTo(TPersistent* Dest) const override;

  /// The text; empty if there is none.
  TString AsText() const;
  void SetAsText(const TString& Text);
  bool HasText() const;
  bool HasBitmap() const;
  void Clear();
  const char* ClassName() const noexcept override;

 private:
  enum class Content { kNothing, kText, kBitmap };
  Content content_ = Content::kNothing;
  TString text_;
  TBitmap bitmap_;
};

/// The clipboard of the process.
ZOR_API TClipboard& Clipboard();

}  // namespace ZOR_imaging

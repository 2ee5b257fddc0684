#include "zor/imaging/clipboard.h"

#include <mutex>

namespace ZOR_imaging {
namespace {

// One for all clipboards, of which a process rarely has a second.
constinit std::mutex g_mutex;

}  // namespace

const char* TClipboard::ClassName() const noexcept { return "TClipboard"; }

void TClipboard::Assign(const TPersistent* Source) {
  if (Source == this) return;
  if (const auto* other = dynamic_cast<const TClipboard*>(Source)) {
    if (other->HasBitmap()) {
      TBitmap copy;
      copy.Assign(other);
      Assign(&copy);
    } else if (other->HasText()) {
      SetAsText(other->AsText());
    } else {
      Clear();
    }
    return;
  }
  if (!ZOR_runtime::IsClass<TGraphic>(Source)) return TPersistent::Assign(Source);
  const std::lock_guard lock(g_mutex);
  bitmap_.Assign(Source);
  text_.clear();
  content_ = Content::kBitmap;
}

void TClipboard::AssignTo(TPersistent* Dest) const {
  auto* const graphic = dynamic_cast<TGraphic*>(Dest);
  const std::lock_guard lock(g_mutex);
  if (!graphic || content_ != Content::kBitmap) return TPersistent::AssignTo(Dest);
  graphic->Assign(&bitmap_);
}

TString TClipboard::AsText() const {
  const std::lock_guard lock(g_mutex);
  return text_;
}

void TClipboard::SetAsText(const TString& Text) {
  const std::lock_guard lock(g_mutex);
  text_ = Text;
  bitmap_.SetSize(0, 0);
  content_ = Content::kText;
}

bool TClipboard::HasText() const {
  const std::lock_guard lock(g_mutex);
  return content_ == Content::kText;
}

bool TClipboard::HasBitmap() const {
  const std::lock_guard lock(g_mutex);
  return content_ == Content::kBitmap;
}

void TClipboard::Clear() {
  const std::lock_guard lock(g_mutex);
  text_.clear();
  bitmap_.SetSize(0, 0);
  content_ = Content::kNothing;
}

TClipboard& Clipboard() {
  static TClipboard clipboard;
  return clipboard;
}

}  // namespace ZOR_imaging

#include "zor/runtime/object.h"

#include <algorithm>

namespace ZOR_runtime {

TObject::~TObject() = default;
const char* TObject::ClassName() const noexcept { return "TObject"; }

namespace {

[[noreturn]] void refuse_assignment(const TPersistent* source, const TPersistent* dest) {
  const TString from = source ? source->ClassName() : "null";
  const TString to = dest ? dest->ClassName() : "null";
  throw EConvertError(from + " cannot be assigned to " + to);
}

}  // namespace

void TPersistent::Assign(const TPersistent* Source) {
  if (!Source) refuse_assignment(Source, this);
  Source->AssignTo(this);
}

void TPersistent::AssignTo(TPersistent* Dest) const { refuse_assignment(this, Dest); }

const char* TPersistent::ClassName() const noexcept { return "TPersistent"; }

TComponent::TComponent(TComponent* AOwner) : owner_(AOwner) {
  if (owner_) owner_->owned_.push_back({this, false});
}

TComponent::~TComponent() {
  // Last made, first deleted. The list is taken one by one, since the deletion of one may create or delete others.
  while (!owned_.empty()) {
    const Owned last = owned_.back();
    owned_.pop_back();
    last.component->owner_ = nullptr;
    if (last.delete_it) delete last.component;
  }
  if (owner_) std::erase_if(owner_->owned_, [this](const Owned& o) { return o.component == this; });
}

void TComponent::adopt(TComponent* component) {
  const auto it = std::ranges::find(owned_, component, &Owned::component);
  if (it != owned_.end()) it->delete_it = true;
}

TComponent* TComponent::Components(Integer i) const noexcept {
  return i >= 0 && i < ComponentCount() ? owned_[zor::detail::to_size(i)].component : nullptr;
}

const char* TComponent::ClassName() const noexcept { return "TComponent"; }

}  // namespace ZOR_runtime

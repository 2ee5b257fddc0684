#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "zor/runtime/exception.h"
#include "zor/runtime/tstring.h"
#include "zor/runtime/types.h"

/// \file  Objects, assignment between objects, and components that own other components.
/// Objects are neither copied nor moved: they have an identity, a name, events and observers. Values go from one to
/// another with Assign.

namespace ZOR_runtime {

/// Root of all classes.
class ZOR_API TObject {
 public:
  TObject() = default;
  virtual ~TObject();
  TObject(const TObject&) = delete;
  TObject& operator=(const TObject&) = delete;

  /// Name of the object's class ("TVector"), for messages.
  virtual const char* ClassName() const noexcept;
};

/// Deletes an object; a null pointer is allowed.
inline void Free(TObject* object) { delete object; }

/// True if object is of class T or of a descendant of it; false for a null pointer.
template <class T>
bool IsClass(const TObject* object) noexcept {
  return dynamic_cast<const T*>(object) != nullptr;
}

/// Object whose state can be assigned to another one.
class ZOR_API TPersistent : public TObject {
 public:
  /// Takes over the state of Source. A class handles the sources it knows and passes all others on to this inherited
  /// form, which asks the source to assign itself. Throws EConvertError if neither side knows the other, or Source is
  /// null.
  virtual void Assign(const TPersistent* Source);
  /// Assigns this object to Dest if this class knows how; this inherited form throws EConvertError.
  virtual void AssignTo(TPersistent* Dest) const;
  const char* ClassName() const noexcept override;
};

/// Object with a name that may own other components.
///
/// A component given an owner is listed there. The owner deletes what Make created; a component with automatic storage
/// is only forgotten. Whoever dies first leaves the other consistent.
class ZOR_API TComponent : public TPersistent {
 public:
  explicit TComponent(TComponent* AOwner = nullptr);
  ~TComponent() override;

  const TString& Name() const noexcept { return name_; }
  void SetName(const TString& name) { name_ = name; }
  TComponent* Owner() const noexcept { return owner_; }
  /// Number of components that name this one as their owner.
  Integer ComponentCount() const noexcept { return zor::detail::to_integer(owned_.size()); }
  /// Component number i in order of creation, counted from 0; null outside.
  TComponent* Components(Integer i) const noexcept;
  const char* ClassName() const noexcept override;

 private:
  template <class T, class... Args>
  friend T* Make(TComponent* owner, Args&&... args);
  struct Owned {
    TComponent* component;
    bool delete_it;
  };
  void adopt(TComponent* component);

  TComponent* owner_ = nullptr;
  TString name_;
  std::vector<Owned> owned_;
};

/// Creates a T that its owner deletes; with a null owner the caller does. The owner is passed behind the other
/// arguments.
template <class T, class... Args>
T* Make(TComponent* owner, Args&&... args) {
  T* made = new T(std::forward<Args>(args)..., owner);
  if (owner) owner->adopt(made);
  return made;
}

}  // namespace ZOR_runtime

/// @file
/// component.h - objects that can be assigned, named and owned.
///
/// An owner deletes the components that are still registered with it when it dies; a component that
/// dies first takes itself out of its owner's list. A component without an owner belongs to whoever
/// holds it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_COMPONENT_H
#define ZAV_PLATFORM_HOST_COMPONENT_H

#include <memory>
#include <string>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/errors.h>

namespace zav {

/// Thrown when an object is assigned from one of a kind that it cannot take.
class ZAVGEO_API EConvertError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

/// An object whose state can be given to another one of its kind.
class ZAVGEO_API TPersistent {
 public:
  virtual ~TPersistent() = default;

  /// Takes over the state of Source. The default asks Source.AssignTo(*this).
  virtual void Assign(const TPersistent& Source);
  /// Copies the state into Dest. The default throws EConvertError.
  virtual void AssignTo(TPersistent& Dest) const;

 protected:
  TPersistent() = default;
  /// The state is copied by the derived class.
  TPersistent(const TPersistent&) = default;
  /// The state is copied by the derived class.
  TPersistent& operator=(const TPersistent&) = default;
};

/// An object with a name, which may have an owner and own others.
class ZAVGEO_API TComponent : public TPersistent {
 public:
  /// Registers with the owner, if there is one.
  explicit TComponent(TComponent* Owner = nullptr);
  ~TComponent() override;
  TComponent(const TComponent&) = delete;
  TComponent& operator=(const TComponent&) = delete;

  /// Who deletes this component; null without an owner.
  TComponent* Owner() const noexcept { return FOwner; }
  /// The components that are registered here, in the order of coming.
  const std::vector<TComponent*>& Components() const noexcept { return FComponents; }

  /// As it stands in messages; empty at first.
  const std::string& Name() const noexcept { return FName; }
  /// Any text; names need not differ.
  void SetName(const std::string& Name) { FName = Name; }

  /// True while the component's properties are being read from a stream.
  bool Loading() const noexcept { return FLoading; }
  /// For whoever reads the properties.
  void SetLoading(bool Loading) noexcept { FLoading = Loading; }
  /// True while the component is shown in a form designer.
  bool Designing() const noexcept { return FDesigning; }
  /// For the form designer.
  void SetDesigning(bool Designing) noexcept { FDesigning = Designing; }

  /// Expires when the component is destroyed. Code that calls a user's handler, which may do that,
  /// asks it before it touches the component again.
  std::weak_ptr<const void> Life() const noexcept { return FLife; }

  /// Reason, framed as every component message is: Component "NAME": REASON
  std::string ComponentMessage(const std::string& Reason) const;

 private:
  TComponent* FOwner;
  std::vector<TComponent*> FComponents;
  std::string FName;
  bool FLoading = false;
  bool FDesigning = false;
  std::shared_ptr<const void> FLife;
};

}  // namespace zav

#endif

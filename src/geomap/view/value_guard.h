// value_guard.h - a member of a component that has another value for a while.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_VALUE_GUARD_H
#define ZAV_GEOMAP_VIEW_VALUE_GUARD_H

#include <memory>
#include <type_traits>

#include <platform/host/component.h>

namespace zav {

// Gives the member its old value back, unless it was changed meanwhile or its owner has died.
template <typename T>
class TValueGuard {
 public:
  TValueGuard(const TComponent& Owner, T& Member, const std::type_identity_t<T>& Value)
      : FLife(Owner.Life()), FMember(Member), FOld(Member), FValue(Value) {
    FMember = Value;
  }
  ~TValueGuard() {
    if (!FLife.expired() && FMember == FValue) FMember = FOld;
  }
  TValueGuard(const TValueGuard&) = delete;
  TValueGuard& operator=(const TValueGuard&) = delete;

 private:
  std::weak_ptr<const void> FLife;
  T& FMember;
  T FOld;
  T FValue;
};

}  // namespace zav

#endif

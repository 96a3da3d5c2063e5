// component.cpp - see component.h.
// SPDX-License-Identifier: MIT
#include <platform/host/component.h>

#include <algorithm>

namespace zav {

void TPersistent::Assign(const TPersistent& Source) { Source.AssignTo(*this); }

void TPersistent::AssignTo(TPersistent& /*Dest*/) const {
  throw EConvertError("The object cannot be assigned to one of this kind.");
}

TComponent::TComponent(TComponent* Owner) : FOwner(Owner), FLife(std::make_shared<char>()) {
  if (FOwner != nullptr) FOwner->FComponents.push_back(this);
}

TComponent::~TComponent() {
  // Each one that dies takes itself out of the list, and may take others with it.
  while (!FComponents.empty()) delete FComponents.back();
  if (FOwner != nullptr) std::erase(FOwner->FComponents, this);
}

std::string TComponent::ComponentMessage(const std::string& Reason) const {
  return "Component \"" + FName + "\": " + Reason;
}

}  // namespace zav

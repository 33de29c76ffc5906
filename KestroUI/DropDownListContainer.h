#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/DropDownList.h"

namespace kestroui {

/// A list that opens, with its title. The value is raw.
class DropDownListContainer : public Container {
 public:
  DropDownListContainer();

  DropDownList& list() { return list_; }

  ValueForm valueForm(const std::string& key) const override;
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;
  /// Closes the list when its page goes.
  void setIsVisible(bool visible) override;

 private:
  DropDownList list_;
};

}  // namespace kestroui

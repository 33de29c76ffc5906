#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/SimpleLabel.h"

namespace kestroui {

/// A text: the value's, or the title where the value has none.
class SimpleLabelContainer : public Container {
 public:
  SimpleLabelContainer();

  SimpleLabel& label() { return label_; }

  void setTitle(const std::string& title) override;
  void showValue(const std::string& key, float value, const std::string& text) override;

 private:
  SimpleLabel label_;
};

}  // namespace kestroui

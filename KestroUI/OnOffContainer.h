#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/OnOffButton.h"

namespace kestroui {

/// A switch with its title. Its string values are the texts of its states.
class OnOffContainer : public Container {
 public:
  explicit OnOffContainer(std::vector<std::string> titles = {});

  OnOffButton& button() { return button_; }

  void setStringValues(const std::vector<std::string>& values) override;

 private:
  OnOffButton button_;
};

}  // namespace kestroui

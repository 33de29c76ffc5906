#pragma once

#include "KestroUI/BitFlagsGroup.h"
#include "KestroUI/Container.h"

namespace kestroui {

/// A group of switches, each a bit of the one raw value.
class BitFlagsGroupContainer : public Container {
 public:
  explicit BitFlagsGroupContainer(const std::vector<std::string>& flags = {});

  BitFlagsGroup& group() { return group_; }

  /// The names of the flags, lowest bit first.
  void setFlags(const std::vector<std::string>& flags);
  ValueForm valueForm(const std::string& key) const override;
  /// Names the flags where setFlags has not.
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  BitFlagsGroup group_;
};

}  // namespace kestroui

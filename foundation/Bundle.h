#pragma once

#include <memory>

#include "foundation/Override.h"
#include "platform/PropertyList.h"

namespace foundation {

/// What a program or plug-in says of itself: the entries of the property list "Info.plist" that it
/// carries. Any thread.
///
/// The main bundle is that of the file which this code is linked into. Every plug-in has its own
/// copy of this library, so several plug-ins in one host's process each find their own; a program
/// that shows one plug-in after another says with a MainBundle which of them it is now.
class Bundle {
 public:
  using InfoDictionary = std::shared_ptr<const platform::PropertyList::Dictionary>;

  /// The main bundle's; null when it carries none, or one that cannot be read. The same object as
  /// long as the main bundle is the same.
  static InfoDictionary mainInfoDictionary();
};

/// Stands for the main bundle as long as it lives, or until a later one takes its place.
class MainBundle {
 public:
  explicit MainBundle(platform::PropertyList::Dictionary infoDictionary);

 private:
  Override<Bundle::InfoDictionary> given_;
};

}  // namespace foundation

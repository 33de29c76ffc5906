#include "tools/orvane/BuiltIns.h"

#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"

namespace tool {

const std::vector<BuiltIn>& builtIns() {
  static const std::vector<BuiltIn> all{{"halden", &halden::pluginEntry},
                                        {"gallery", &gallery::pluginEntry}};
  return all;
}

}  // namespace tool

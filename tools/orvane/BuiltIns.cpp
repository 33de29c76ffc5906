#include "tools/orvane/BuiltIns.h"

#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Selvik/SelvikPlugin.h"

namespace tool {

const std::vector<BuiltIn>& builtIns() {
  static const std::vector<BuiltIn> all{{"halden", &halden::pluginEntry},
                                        {"gallery", &gallery::pluginEntry},
                                        {"selvik", &selvik::pluginEntry}};
  return all;
}

}  // namespace tool

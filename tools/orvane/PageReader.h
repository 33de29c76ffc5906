#pragma once

#include <string>
#include <vector>

#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/ObjectReader.h"

namespace tool {

/// Reads the pages of a description. Whether they name parameters that exist and fit together is
/// for DesignCheck to say.
class PageReader {
 public:
  explicit PageReader(Problems& problems) : problems_(problems) {}

  std::vector<DescribedPage> read(ObjectReader& plugin);

 private:
  using Json = nlohmann::json;

  DescribedPage readPage(const Json& value, const std::string& place);
  orvane::UISection readSection(const Json& value, const std::string& place);
  orvane::UIColumn readColumn(const Json& value, const std::string& place);
  orvane::UIParameter readSlot(const Json& value, const std::string& place);

  Problems& problems_;
};

}  // namespace tool

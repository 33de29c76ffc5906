#include "foundation/PropertyListCoding.h"

#include <string_view>

#include "foundation/BinaryPropertyList.h"
#include "foundation/XmlPropertyList.h"

namespace foundation {

using platform::PropertyList;

std::optional<PropertyList> parsePropertyList(std::span<const std::uint8_t> bytes,
                                              std::string& error) {
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.substr(0, 6) == "bplist")
    return readBinaryPropertyList(bytes, PropertyListLimits::ofFile(bytes.size()), error);

  if (text.substr(0, 3) == "\xef\xbb\xbf") text.remove_prefix(3);
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (text.empty())
    error = "the property list is empty";
  else if (start == text.npos || text[start] != '<')
    error = "this is no property list, neither XML nor binary";
  else if (text.size() > PropertyListLimits().size)
    error = "the XML property list is larger than can be read";
  else
    return readXmlPropertyList(text.substr(start), PropertyListLimits::ofText(text.size()), error);
  return std::nullopt;
}

std::string writeXmlPropertyList(const PropertyList& list) {
  return xmlPropertyListText(list.isNull() ? PropertyList(PropertyList::Dictionary()) : list);
}

}  // namespace foundation

#include "tools/orvane/PropertyListJson.h"

#include <string>
#include <utility>

namespace tool {

using Json = nlohmann::ordered_json;
using platform::PropertyList;

namespace {

struct ToJson {
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(const PropertyList::Data& value) const { return {{"bytes", value.size()}}; }
  Json operator()(const PropertyList::Date& value) const { return {{"date", value.seconds}}; }
  Json operator()(const PropertyList::Array& value) const {
    Json list = Json::array();
    for (const PropertyList& item : value) list.push_back(jsonOf(item));
    return list;
  }
  Json operator()(const PropertyList::Dictionary& value) const {
    Json object = Json::object();
    for (const auto& [key, item] : value) object[key] = jsonOf(item);
    return object;
  }
  template <class Plain>
  Json operator()(const Plain& value) const {
    return value;
  }
};

}  // namespace

Json jsonOf(const PropertyList& list) { return std::visit(ToJson(), list.value()); }

}  // namespace tool

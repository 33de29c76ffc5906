#include "tools/orvane/DescribedDesign.h"

#include <set>
#include <utility>

namespace tool {

namespace {

std::set<std::string> keysWithAPlace(const DescribedPlugin& plugin) {
  std::set<std::string> keys;
  for (const auto& key : plugin.foot)
    if (key) keys.insert(*key);
  for (const DescribedPage& page : plugin.pages) {
    for (const orvane::UISection& placement : page.sections) {
      const orvane::Section& section = *placement.section;
      if (section.stateParameter) keys.insert(*section.stateParameter);
      if (section.feedbackParameter) keys.insert(*section.feedbackParameter);
      for (const orvane::UIColumn& column : section.stack) {
        for (const orvane::UIParameter& slot : column.params) {
          keys.insert(slot.param);
          for (const auto& sibling : slot.siblings)
            if (sibling) keys.insert(*sibling);
        }
      }
    }
  }
  return keys;
}

}  // namespace

DescribedDesign::DescribedDesign(std::shared_ptr<const DescribedPlugin> plugin)
    : plugin_(std::move(plugin)) {
  const std::set<std::string> keys = keysWithAPlace(*plugin_);
  for (const DescribedParameter& parameter : plugin_->parameters)
    if (keys.contains(parameter.audio.key))
      keys_.push_back(
          std::make_shared<kestroui::ParamKey>(parameter.audio.key, parameter.settings));
}

std::vector<std::shared_ptr<orvane::Page>> DescribedDesign::pages() const {
  std::vector<std::shared_ptr<orvane::Page>> pages;
  for (const DescribedPage& page : plugin_->pages)
    pages.push_back(std::make_shared<orvane::Page>(page.sections, page.title));
  return pages;
}

std::vector<std::shared_ptr<kestroui::ParamKey>> DescribedDesign::foot() const {
  std::map<std::string, std::shared_ptr<kestroui::ParamKey>> byKey;
  for (const auto& key : keys_) byKey[key->key()] = key;
  std::vector<std::shared_ptr<kestroui::ParamKey>> foot;
  for (const auto& key : plugin_->foot) foot.push_back(key ? byKey[*key] : nullptr);
  return foot;
}

}  // namespace tool

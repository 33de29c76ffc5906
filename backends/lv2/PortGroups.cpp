#include "backends/lv2/PortGroups.h"

#include <utility>

namespace lv2_backend {
namespace {

std::vector<std::string> keysOf(const orvane::Section& section) {
  std::vector<std::string> keys;
  if (section.stateParameter) keys.push_back(*section.stateParameter);
  for (const orvane::UIColumn& column : section.stack) {
    for (const orvane::UIParameter& slot : column.params) {
      keys.push_back(slot.param);
      for (const auto& sibling : slot.siblings)
        if (sibling) keys.push_back(*sibling);
    }
  }
  if (section.feedbackParameter) keys.push_back(*section.feedbackParameter);
  return keys;
}

}  // namespace

PortGroups::PortGroups(const orvane::AUDesign& design, const PortLayout& layout) {
  for (const ParameterPort& port : layout.parameters()) ungrouped_.insert(port.parameter->key());
  for (const auto& key : design.paramKeys())
    attached_[key->key()] = key->settings().attachedParameters;
  for (const auto& page : design.pages())
    for (const orvane::UISection& placed : page->sections)
      addSection(*placed.section, page->title());
}

void PortGroups::addSection(const orvane::Section& section, const std::string& pageTitle) {
  std::vector<std::string> members;
  const auto take = [&](const std::string& key) {
    if (ungrouped_.erase(key)) members.push_back(key);
  };
  for (const std::string& key : keysOf(section)) {
    take(key);
    const auto entry = attached_.find(key);
    if (entry == attached_.end()) continue;
    for (const std::string& attached : entry->second) take(attached);
  }
  if (members.empty()) return;

  for (const std::string& key : members) groupOfKey_[key] = groups_.size();
  const std::string name = uniqueName(section.name, pageTitle);
  groups_.push_back({symbols_.add(name), name});
}

std::string PortGroups::uniqueName(const std::string& section, const std::string& page) {
  std::string name = !section.empty() ? section : !page.empty() ? page : "Parameters";
  if (names_.insert(name).second) return name;
  if (!section.empty() && !page.empty()) name = page + " " + section;
  std::string unique = name;
  for (int number = 2; !names_.insert(unique).second; ++number)
    unique = name + " " + std::to_string(number);
  return unique;
}

const PortGroups::Group* PortGroups::groupOf(const std::string& parameterKey) const {
  const auto entry = groupOfKey_.find(parameterKey);
  return entry == groupOfKey_.end() ? nullptr : &groups_[entry->second];
}

}  // namespace lv2_backend

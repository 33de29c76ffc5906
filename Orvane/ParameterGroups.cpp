#include "Orvane/ParameterGroups.h"

#include <utility>

namespace orvane {
namespace {

std::vector<std::string> keysOf(const Section& section) {
  std::vector<std::string> keys;
  if (section.stateParameter) keys.push_back(*section.stateParameter);
  for (const UIColumn& column : section.stack) {
    for (const UIParameter& slot : column.params) {
      keys.push_back(slot.param);
      for (const auto& sibling : slot.siblings)
        if (sibling) keys.push_back(*sibling);
    }
  }
  if (section.feedbackParameter) keys.push_back(*section.feedbackParameter);
  return keys;
}

}  // namespace

ParameterGroups::ParameterGroups(const AUDesign& design, const std::vector<std::string>& keys)
    : ungrouped_(keys.begin(), keys.end()) {
  for (const auto& key : design.paramKeys())
    attached_[key->key()] = key->settings().attachedParameters;
  for (const auto& page : design.pages())
    for (const UISection& placed : page->sections) addSection(*placed.section, page->title());
}

void ParameterGroups::addSection(const Section& section, const std::string& pageTitle) {
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
  groups_.push_back({uniqueName(section.name, pageTitle)});
}

std::string ParameterGroups::uniqueName(const std::string& section, const std::string& page) {
  std::string name = !section.empty() ? section : !page.empty() ? page : "Parameters";
  if (names_.insert(name).second) return name;
  if (!section.empty() && !page.empty()) name = page + " " + section;
  std::string unique = name;
  for (int number = 2; !names_.insert(unique).second; ++number)
    unique = name + " " + std::to_string(number);
  return unique;
}

const ParameterGroups::Group* ParameterGroups::groupOf(const std::string& parameterKey) const {
  const auto entry = groupOfKey_.find(parameterKey);
  return entry == groupOfKey_.end() ? nullptr : &groups_[entry->second];
}

}  // namespace orvane

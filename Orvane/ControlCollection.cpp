#include "Orvane/ControlCollection.h"

#include <utility>

#include "platform/Fatal.h"

namespace orvane {

std::shared_ptr<kestroui::Container> ControlCollection::operator[](const Key& key) const {
  const auto entry = controls_.find(key);
  return entry == controls_.end() ? nullptr : entry->second;
}

void ControlCollection::set(const Key& key, std::shared_ptr<kestroui::Container> container) {
  // Erased first: another key object with the same string brings its own settings.
  controls_.erase(key);
  if (container) controls_.emplace(key, std::move(container));
  ++generation_;
}

void ControlCollection::addKey(const Key& key) {
  allParamKeys_.insert_or_assign(key->key(), key);
  ++generation_;
}

std::shared_ptr<kestroui::Container> ControlCollection::container(std::string_view key) const {
  const auto entry = allParamKeys_.find(key);
  if (entry == allParamKeys_.end())
    platform::fatal("No parameter of the design has the key \"" + std::string(key) + "\"");
  return (*this)[entry->second];
}

void ControlCollection::clear() {
  controls_.clear();
  allParamKeys_.clear();
  ++generation_;
}

}  // namespace orvane

#include "Orvane/FavPresetsStore.h"

#include <algorithm>

#include "foundation/UserDefaults.h"

namespace orvane {

using foundation::UserDefaults;
using platform::PropertyList;

namespace {

constexpr const char* favouritesKey = "favpresets";

void removeFirst(const std::string& uniqueName) {
  auto& list = FavPresetsStore::favouritePresets;
  const auto found = std::find(list.begin(), list.end(), uniqueName);
  if (found != list.end()) list.erase(found);
}

}  // namespace

void FavPresetsStore::load() {
  favouritePresets.clear();
  auto defaults = UserDefaults::open(suiteName);
  const auto stored = defaults ? defaults->array(favouritesKey) : std::nullopt;
  if (!stored) return;
  for (const PropertyList& element : *stored)
    if (const auto* name = element.as<std::string>()) favouritePresets.push_back(*name);
}

void FavPresetsStore::save() {
  // Removed, written out, set and written out anew, as the family's programs do: each reads the
  // suite of the app group while another writes it.
  if (auto defaults = UserDefaults::open(suiteName)) defaults->removeObject(favouritesKey);
  if (auto defaults = UserDefaults::open(suiteName)) defaults->synchronize();
  const PropertyList::Array whole(favouritePresets.begin(), favouritePresets.end());
  if (auto defaults = UserDefaults::open(suiteName)) defaults->setObject(favouritesKey, whole);
  if (auto defaults = UserDefaults::open(suiteName)) defaults->synchronize();
}

void FavPresetsStore::setFavourite(Preset& preset, bool isFavourite) {
  preset.isFavourite = isFavourite;
  if (isFavourite)
    add(preset.uniqueName());
  else
    remove(preset.uniqueName());
}

bool FavPresetsStore::contains(const std::string& uniqueName) {
  return std::find(favouritePresets.begin(), favouritePresets.end(), uniqueName) !=
         favouritePresets.end();
}

void FavPresetsStore::add(const std::string& uniqueName) {
  favouritePresets.push_back(uniqueName);
  save();
}

void FavPresetsStore::remove(const std::string& uniqueName) {
  removeFirst(uniqueName);
  save();
}

}  // namespace orvane

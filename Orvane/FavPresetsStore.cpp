#include "Orvane/FavPresetsStore.h"

#include <algorithm>

#include "foundation/UnicodeText.h"
#include "foundation/UserDefaults.h"

namespace orvane {

using foundation::UserDefaults;
using platform::PropertyList;

namespace {

constexpr const char* favouritesKey = "favpresets";
/// Stands before the path of a file whose name no list can hold, with every odd byte as "%E9".
constexpr std::string_view encodedPath = "file://";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

/// A list of texts cannot hold the names of all files.
std::string stored(const std::string& uniqueName) {
  if (foundation::isPlainText(uniqueName)) return uniqueName;
  std::string text(encodedPath);
  for (const char c : uniqueName) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x80 && c != '%')
      text += c;
    else
      text.append({'%', hexDigits[byte >> 4U], hexDigits[byte & 15U]});
  }
  return text;
}

std::string restored(const std::string& text) {
  if (!text.starts_with(encodedPath)) return text;
  std::string name;
  for (std::size_t i = encodedPath.size(); i < text.size(); ++i) {
    const std::size_t high = i + 2 < text.size() ? hexDigits.find(text[i + 1]) : text.npos;
    const std::size_t low = i + 2 < text.size() ? hexDigits.find(text[i + 2]) : text.npos;
    const bool isByte = text[i] == '%' && high != text.npos && low != text.npos;
    name += isByte ? static_cast<char>(high << 4U | low) : text[i];
    if (isByte) i += 2;
  }
  return stored(name) == text ? name : text;
}

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
    if (const auto* name = element.as<std::string>()) favouritePresets.push_back(restored(*name));
}

void FavPresetsStore::save() {
  // Removed, written out, set and written out anew, as the family's programs do: each reads the
  // suite of the app group while another writes it.
  if (auto defaults = UserDefaults::open(suiteName)) defaults->removeObject(favouritesKey);
  if (auto defaults = UserDefaults::open(suiteName)) defaults->synchronize();
  PropertyList::Array whole;
  for (const std::string& name : favouritePresets) whole.emplace_back(stored(name));
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

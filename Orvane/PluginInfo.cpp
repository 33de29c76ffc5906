#include "Orvane/PluginInfo.h"

#include <mutex>
#include <utility>

#include "foundation/Bundle.h"
#include "platform/Fatal.h"

namespace orvane {

using platform::PropertyList;

namespace {

constexpr const char* nameKey = "CFBundleDisplayName";
constexpr const char* majorKey = "CFBundleShortVersionString";
constexpr const char* minorKey = "CFBundleVersion";
constexpr const char* storeKey = "StoreIdentifier";

/// A value that is read once; none when the bundle does not have it.
using Entry = std::optional<std::optional<PropertyList>>;

struct Values {
  foundation::Bundle::InfoDictionary bundle;
  std::optional<std::string> appName;
  Entry major, minor;
};

std::mutex mutex;

/// Those of the present main bundle. Under the lock.
Values& values() {
  static Values kept;
  if (auto bundle = foundation::Bundle::mainInfoDictionary(); bundle != kept.bundle)
    kept = {std::move(bundle), {}, {}, {}};
  return kept;
}

std::optional<PropertyList> read(const Values& from, const char* key) {
  if (!from.bundle) return std::nullopt;
  const auto entry = from.bundle->find(key);
  return entry == from.bundle->end() ? std::nullopt : std::optional(entry->second);
}

const std::optional<PropertyList>& once(Entry& entry, const Values& from, const char* key) {
  if (!entry) entry = read(from, key);
  return *entry;
}

std::string& nameOf(Values& from) {
  if (!from.appName) {
    const std::optional<PropertyList> entry = read(from, nameKey);
    const auto* name = entry ? entry->as<std::string>() : nullptr;
    if (!name) platform::fatal("The main bundle's Info.plist has no CFBundleDisplayName");
    from.appName = *name;
  }
  return *from.appName;
}

}  // namespace

std::string PluginInfo::appName() {
  const std::lock_guard lock(mutex);
  return nameOf(values());
}

void PluginInfo::setAppName(std::string name) {
  const std::lock_guard lock(mutex);
  nameOf(values()) = std::move(name);
}

std::optional<PropertyList> PluginInfo::major() {
  const std::lock_guard lock(mutex);
  Values& all = values();
  return once(all.major, all, majorKey);
}

std::optional<PropertyList> PluginInfo::minor() {
  const std::lock_guard lock(mutex);
  Values& all = values();
  return once(all.minor, all, minorKey);
}

std::string PluginInfo::completeVersion() {
  const std::optional<PropertyList> first = major(), second = minor();
  const auto* version = first ? first->as<std::string>() : nullptr;
  const auto* build = second ? second->as<std::string>() : nullptr;
  if (!version || !build)
    platform::fatal(
        "The main bundle's Info.plist has no CFBundleShortVersionString or CFBundleVersion");
  return *version + "." + *build;
}

std::optional<std::string> PluginInfo::storeIdentifier() {
  const std::lock_guard lock(mutex);
  const std::optional<PropertyList> entry = read(values(), storeKey);
  const auto* text = entry ? entry->as<std::string>() : nullptr;
  return text && !text->empty() ? std::optional(*text) : std::nullopt;
}

}  // namespace orvane

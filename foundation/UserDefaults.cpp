#include "foundation/UserDefaults.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <set>
#include <utility>

#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"
#include "foundation/FileLock.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/RunLoop.h"
#include "platform/FileManager.h"

namespace foundation {

using platform::FileError;
using platform::FileManager;
using platform::PropertyList;

/// What this process knows of one suite; one for all who open it.
struct UserDefaults::Suite : std::enable_shared_from_this<Suite> {
  /// As they were when this process last read or wrote them.
  std::map<std::string, PropertyList::Array> known;
  /// Not yet from the file.
  std::set<std::string> removed;
  std::string folder;
  std::string name;

  std::string path() const { return folder + '/' + name + ".plist"; }

  static std::shared_ptr<Suite> of(const std::string& folder, const std::string& name) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<Suite>> suites;
    const std::lock_guard lock(mutex);
    std::shared_ptr<Suite>& suite = suites[folder + '/' + name];
    if (!suite) {
      suite = std::make_shared<Suite>();
      suite->folder = folder;
      suite->name = name;
    }
    return suite;
  }

  enum class Found { values, nothing, unreadable, damaged };
  struct Content {
    PropertyList::Dictionary values{};
    Found found = Found::nothing;
  };

  Content read() const {
    FileManager& files = DefaultFileManager::current();
    if (!files.fileExists(path())) return {};
    FileError fileError;
    const auto bytes = files.contents(path(), fileError);
    if (!bytes) {
      printToConsole(fileError.localizedDescription);
      return {.found = Found::unreadable};
    }
    std::string error;
    auto list = parsePropertyList(*bytes, error);
    if (auto* dictionary = list ? list->as<PropertyList::Dictionary>() : nullptr)
      return {std::move(*dictionary), Found::values};
    printToConsole(path() + ": " + (list ? "there is no dictionary" : error));
    return {.found = Found::damaged};
  }

  /// Copies a damaged file to a name of its own, so that what can be saved of it is not lost with the
  /// next change.
  bool keepAside() const {
    FileManager& files = DefaultFileManager::current();
    std::string aside = path() + ".damaged";
    for (int number = 2; files.fileExists(aside); ++number)
      aside = path() + ".damaged-" + std::to_string(number);
    const auto error = files.copyItem(path(), aside);
    printToConsole(error ? error->localizedDescription
                         : "The damaged settings are kept in " + aside);
    return !error;
  }

  /// Does to the file what `change` does to its dictionary, alone among all processes.
  template <class Change>
  bool update(Change change) {
    FileManager& files = DefaultFileManager::current();
    if (!files.isDirectory(folder))
      if (const auto error = files.createDirectory(folder, FileManager::Intermediates::create)) {
        printToConsole(error->localizedDescription);
        return false;
      }
    const FileLock lock(path() + ".lock");
    auto [values, found] = read();
    // What cannot be read at this moment may be whole.
    if (found == Found::unreadable || (found == Found::damaged && !keepAside())) return false;
    for (const std::string& key : removed) values.erase(key);
    change(values);
    const std::string text = writeXmlPropertyList(values);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    if (const auto error = files.write({bytes, text.size()}, path())) {
      printToConsole(error->localizedDescription);
      return false;
    }
    removed.clear();
    return true;
  }

  void removeFromFile() {
    if (!removed.empty()) update([](PropertyList::Dictionary&) {});
  }
};

namespace {

bool takeFirst(PropertyList::Array& array, const PropertyList& element) {
  const auto found = std::find(array.begin(), array.end(), element);
  if (found == array.end()) return false;
  array.erase(found);
  return true;
}

/// `stored` with the changes that lead from `before` to `after`.
PropertyList::Array merged(const PropertyList::Array& before, const PropertyList::Array& after,
                           PropertyList::Array stored) {
  if (stored == before) return after;
  PropertyList::Array taken = before, added;
  for (const PropertyList& element : after)
    if (!takeFirst(taken, element)) added.push_back(element);
  for (const PropertyList& element : taken) takeFirst(stored, element);
  stored.insert(stored.end(), added.begin(), added.end());
  return stored;
}

}  // namespace

UserDefaults::UserDefaults(std::shared_ptr<Suite> suite) : suite_(std::move(suite)) {}

std::optional<UserDefaults> UserDefaults::open(const std::string& suiteName) {
  const auto container = DefaultFileManager::current().groupContainer(suiteName);
  if (!container) return std::nullopt;
  return UserDefaults(Suite::of(*container + "/Library/Preferences", suiteName));
}

std::optional<PropertyList::Array> UserDefaults::array(const std::string& key) {
  if (suite_->removed.count(key)) return std::nullopt;
  PropertyList::Dictionary values = suite_->read().values;
  const auto found = values.find(key);
  auto* array = found == values.end() ? nullptr : found->second.as<PropertyList::Array>();
  suite_->known[key] = array ? *array : PropertyList::Array();
  if (!array) return std::nullopt;
  return std::move(*array);
}

void UserDefaults::removeObject(const std::string& key) {
  suite_->removed.insert(key);
  DispatchQueue::mainAsync([suite = suite_] { suite->removeFromFile(); });
}

void UserDefaults::setObject(const std::string& key, const PropertyList::Array& value) {
  const auto known = suite_->known.find(key);
  suite_->removed.erase(key);
  const bool written = suite_->update([&](PropertyList::Dictionary& values) {
    const auto found = values.find(key);
    const auto* stored = found == values.end() ? nullptr : found->second.as<PropertyList::Array>();
    values[key] =
        known == suite_->known.end() || !stored ? value : merged(known->second, value, *stored);
  });
  if (written) suite_->known[key] = value;
}

void UserDefaults::synchronize() {
  if (!RunLoop::mainIfAny()) suite_->removeFromFile();
}

}  // namespace foundation

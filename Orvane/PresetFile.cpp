#include "Orvane/PresetFile.h"

#include <utility>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"

namespace orvane {

using platform::PropertyList;

namespace {

/// Categories stand among the first entries, which are in order, and are short.
constexpr std::size_t startSize = 2048;
constexpr std::size_t endSize = 32;
constexpr std::string_view whitespace = " \t\r\n";

/// Goes through the elements of an XML property list as this project and others write it; whatever
/// is less usual ends the walk, and the whole file is parsed instead.
class Walk {
 public:
  explicit Walk(std::string_view text) : rest_(text) {}

  void skipSpace() {
    const std::size_t first = rest_.find_first_not_of(whitespace);
    rest_.remove_prefix(first == rest_.npos ? rest_.size() : first);
  }
  bool take(std::string_view expected) {
    skipSpace();
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }
  bool skipPast(std::string_view end) {
    const std::size_t found = rest_.find(end);
    if (found == rest_.npos) return false;
    rest_.remove_prefix(found + end.size());
    return true;
  }
  /// The text of an element that begins here; none for another one, or when it holds anything that
  /// has to be decoded.
  std::optional<std::string> text(const std::string& element) {
    if (take('<' + element + "/>")) return std::string();
    if (!take('<' + element + '>')) return std::nullopt;
    const std::size_t end = rest_.find('<');
    if (end == rest_.npos) return std::nullopt;
    const std::string_view found = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (!take("</" + element + '>') || found.find('&') != found.npos) return std::nullopt;
    return std::string(found);
  }
  bool skipPlainValue() {
    if (take("<true/>") || take("<false/>")) return true;
    for (const char* element : {"string", "integer", "real", "date", "data"})
      if (text(element)) return true;
    return false;
  }

 private:
  std::string_view rest_;
};

std::string_view viewOf(const PropertyList::Data& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool endsAsPropertyList(std::string_view text) {
  const std::size_t last = text.find_last_not_of(whitespace);
  return last != text.npos && text.substr(0, last + 1).ends_with("</plist>");
}

}  // namespace

std::optional<PresetFile> PresetFile::decode(std::span<const std::uint8_t> bytes,
                                             std::string& error) {
  auto list = foundation::parsePropertyList(bytes, error);
  if (!list) return std::nullopt;
  PresetFile file;
  if (foundation::isKeyedArchive(*list)) {
    auto root = foundation::unarchive(*list, error);
    if (root && root->as<PropertyList::Dictionary>()) {
      file.form = Form::keyedArchive;
      file.content = std::move(*root);
      return file;
    }
  }
  file.content = std::move(*list);
  return file;
}

std::vector<std::string> PresetFile::categories() const {
  const PropertyList* entry = content.find(categoriesKey);
  const auto* array = entry ? entry->as<PropertyList::Array>() : nullptr;
  std::vector<std::string> result;
  if (!array) return result;
  for (const PropertyList& element : *array) {
    const auto* text = element.as<std::string>();
    if (!text) return {};
    result.push_back(*text);
  }
  return result;
}

std::optional<std::vector<std::string>> PresetFile::categoriesAtStart(std::string_view xml) {
  Walk walk(xml);
  if (walk.take("<?xml") && !walk.skipPast("?>")) return std::nullopt;
  if (walk.take("<!DOCTYPE plist") && !walk.skipPast(">")) return std::nullopt;
  if (!walk.take("<plist") || !walk.skipPast(">") || !walk.take("<dict>")) return std::nullopt;
  while (const auto key = walk.text("key")) {
    if (*key != categoriesKey) {
      if (*key == "$archiver" || !walk.skipPlainValue()) return std::nullopt;
      continue;
    }
    std::vector<std::string> categories;
    if (walk.take("<array/>")) return categories;
    if (!walk.take("<array>")) return std::nullopt;
    while (!walk.take("</array>")) {
      auto category = walk.text("string");
      if (!category) return std::nullopt;
      categories.push_back(std::move(*category));
    }
    return categories;
  }
  return std::nullopt;
}

std::vector<std::string> PresetFile::categories(platform::FileManager& files,
                                                const std::string& path, std::uint64_t size) {
  platform::FileError fileError;
  if (size > startSize) {
    const auto start = files.contents(path, fileError, 0, startSize);
    if (!start) return {};
    if (auto found = categoriesAtStart(viewOf(*start))) {
      // A file that ends too early is a broken one.
      const auto end = files.contents(path, fileError, size - endSize, endSize);
      if (end && endsAsPropertyList(viewOf(*end))) return std::move(*found);
    }
  }
  std::string error;
  const auto bytes = files.contents(path, fileError);
  const auto file = bytes ? decode(*bytes, error) : std::nullopt;
  return file ? file->categories() : std::vector<std::string>();
}

}  // namespace orvane

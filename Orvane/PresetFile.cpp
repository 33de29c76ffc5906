#include "Orvane/PresetFile.h"

#include <utility>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/XmlPropertyList.h"

namespace orvane {

using platform::PropertyList;

namespace {

/// Categories stand among the first entries, which are in order, and are short.
constexpr std::size_t startSize = 2048;
constexpr std::size_t endSize = 32;
constexpr std::string_view whitespace = " \t\r\n";

std::string_view viewOf(const PropertyList::Data& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// None of an array of which not every element is a text, and of anything else.
std::vector<std::string> textsOf(const PropertyList* entry) {
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
    if (root) error = "the keyed archive holds no dictionary";
  }
  file.content = std::move(*list);
  return file;
}

std::vector<std::string> PresetFile::categories() const {
  return textsOf(content.find(categoriesKey));
}

std::optional<std::vector<std::string>> PresetFile::categoriesAtStart(std::string_view xml) {
  // An archive has them elsewhere.
  static constexpr std::string_view keys[] = {categoriesKey, "$archiver"};
  auto entry = foundation::firstXmlEntry(xml, keys);
  if (!entry || entry->first != categoriesKey) return std::nullopt;
  return textsOf(&entry->second);
}

std::optional<std::vector<std::string>> PresetFile::categoriesAtEnds(platform::FileManager& files,
                                                                     const std::string& path,
                                                                     std::uint64_t size) {
  if (size <= startSize) return std::nullopt;
  platform::FileError ignored;
  const auto start = files.contents(path, ignored, 0, startSize);
  auto found = start ? categoriesAtStart(viewOf(*start)) : std::nullopt;
  if (!found) return std::nullopt;
  // A file that ends too early is a broken one.
  const auto end = files.contents(path, ignored, size - endSize, endSize);
  return end && endsAsPropertyList(viewOf(*end)) ? found : std::nullopt;
}

std::optional<std::vector<std::string>> PresetFile::categories(platform::FileManager& files,
                                                               const std::string& path,
                                                               std::uint64_t size) {
  if (auto found = categoriesAtEnds(files, path, size)) return found;
  platform::FileError fileError;
  std::string error;
  const auto bytes = files.contents(path, fileError);
  if (!bytes) return std::nullopt;
  const auto file = decode(*bytes, error);
  return file ? file->categories() : std::vector<std::string>();
}

}  // namespace orvane

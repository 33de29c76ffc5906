#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileManager.h"
#include "platform/PropertyList.h"

namespace orvane {

/// The content of a preset file: a property list of the audio unit's state dictionary, or in older
/// files a keyed archive of it.
class PresetFile {
 public:
  static constexpr const char* categoriesKey = "Categories";

  enum class Form { propertyList, keyedArchive };

  /// None when the bytes are neither; `error` then says why in one line. An archive that cannot be
  /// read counts as the property list that it is.
  static std::optional<PresetFile> decode(std::span<const std::uint8_t> bytes, std::string& error);

  /// The categories in a preset file of `size` bytes, empty for a file that has none or is no
  /// preset; none when it cannot be read. Reads only the beginning and the end where they tell. Any
  /// thread.
  static std::optional<std::vector<std::string>> categories(platform::FileManager& files,
                                                            const std::string& path,
                                                            std::uint64_t size);
  /// The same, but none where beginning and end do not tell.
  static std::optional<std::vector<std::string>> categoriesAtEnds(platform::FileManager& files,
                                                                  const std::string& path,
                                                                  std::uint64_t size);
  /// What the beginning of an XML property list says of the categories; none when it does not say.
  static std::optional<std::vector<std::string>> categoriesAtStart(std::string_view xml);

  /// The entry "Categories" when it is an array of texts alone, else none.
  std::vector<std::string> categories() const;

  Form form = Form::propertyList;
  platform::PropertyList content;
};

}  // namespace orvane

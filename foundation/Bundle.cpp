#include "foundation/Bundle.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "foundation/Console.h"
#include "foundation/PropertyListCoding.h"

namespace foundation {

using platform::PropertyList;

namespace {

namespace fs = std::filesystem;

constexpr const char* fileName = "Info.plist";

/// Where the file of this code would have its property list: a program in a folder beside its own,
/// as what is installed in "bin" has all its files, and a plug-in in its bundle.
std::vector<fs::path> places() {
  Dl_info info;
  link_map* object = nullptr;
  // Any address of this file does.
  if (!::dladdr1(reinterpret_cast<const void*>(&Bundle::mainInfoDictionary), &info,
                 reinterpret_cast<void**>(&object), RTLD_DL_LINKMAP))
    return {};
  const bool isProgram = !object || !object->l_name || !*object->l_name;
  std::error_code error;
  const fs::path file = fs::canonical(isProgram ? "/proc/self/exe" : object->l_name, error);
  if (error) return {};
  const fs::path folder = file.parent_path(), above = folder.parent_path();
  if (isProgram) return {above / "share" / file.filename() / fileName};
  return {folder / fileName, above / fileName};
}

Bundle::InfoDictionary readOwn() {
  for (const fs::path& place : places()) {
    std::ifstream file(place, std::ios::binary);
    if (!file) continue;
    const std::vector<char> text{std::istreambuf_iterator<char>(file), {}};
    std::string problem;
    auto list = parsePropertyList({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                                  problem);
    if (auto* entries = list ? list->as<PropertyList::Dictionary>() : nullptr)
      return std::make_shared<const PropertyList::Dictionary>(std::move(*entries));
    printToConsole(place.string() + ": " + (problem.empty() ? "not a dictionary" : problem));
  }
  return nullptr;
}

}  // namespace

Bundle::InfoDictionary Bundle::mainInfoDictionary() {
  if (auto given = Override<InfoDictionary>::with(
          [](const InfoDictionary* info) { return info ? *info : nullptr; }))
    return given;
  static const InfoDictionary own = readOwn();
  return own;
}

MainBundle::MainBundle(PropertyList::Dictionary infoDictionary)
    : given_(std::make_shared<const PropertyList::Dictionary>(std::move(infoDictionary))) {}

}  // namespace foundation

#pragma once

#include <string>

namespace orvane {

/// Where the maker of a plug-in is found. None is built in: whatever is left empty is not shown and
/// not asked.
struct MakerAddresses {
  /// How the subject of a letter to the maker begins.
  std::string maker = "KESTRO";

  /// Begins the address that is asked for the product's help page: "https://www.example.org".
  std::string helpHost{};
  /// Page of the store that takes reviews, up to where the plug-in's identifier follows:
  /// "https://store.example.org/review?id=".
  std::string reviewPage{};
  /// Page of the store with all that the maker has.
  std::string allApps{};
  /// Mail address, without "mailto:".
  std::string feedback{};

  std::string website{};
  std::string facebook{};
  std::string youtube{};
  std::string instagram{};
  std::string twitter{};
};

}  // namespace orvane

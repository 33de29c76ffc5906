#pragma once

#include <optional>
#include <string>

#include "platform/PropertyList.h"

namespace orvane {

/// What the main bundle says of the plug-in: its name and version, as the views show them. One for
/// the whole process; see foundation::Bundle for what the main bundle is where several plug-ins share
/// one. Each value is read once, on first use, and kept as long as the main bundle is the same. Any
/// thread.
class PluginInfo {
 public:
  PluginInfo() = delete;

  /// "CFBundleDisplayName". Fatal when the bundle has none.
  static std::string appName();
  /// Shows another name from now on. Fatal when the bundle has none.
  static void setAppName(std::string name);
  /// "CFBundleShortVersionString", the whole number that people know: "1.4.2". As it stands in the
  /// bundle; none without it.
  static std::optional<platform::PropertyList> major();
  /// "CFBundleVersion", the number of the build. As it stands in the bundle; none without it.
  static std::optional<platform::PropertyList> minor();
  /// Both, joined by a dot: "1.4.2.37". Fatal unless both are texts.
  static std::string completeVersion();
  /// "StoreIdentifier", what the app store calls the plug-in. None for a plug-in that is in no store.
  static std::optional<std::string> storeIdentifier();
};

}  // namespace orvane

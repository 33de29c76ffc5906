#pragma once

#include <optional>
#include <string>

namespace kestroui {

/// What the app store calls the plug-in: "StoreIdentifier" of the main bundle. None for a plug-in
/// that is in no store.
std::optional<std::string> storeIdentifier();

}  // namespace kestroui

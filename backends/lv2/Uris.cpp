#include "backends/lv2/Uris.h"

#include <string_view>

namespace lv2_backend {

std::string pluginUri(const orvane::PluginEntry& entry) {
  constexpr std::string_view unreserved =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~";
  constexpr char digits[] = "0123456789ABCDEF";
  std::string uri = "urn:orvane:";
  for (const char c : entry.identifier) {
    if (unreserved.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      uri += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return uri;
}

std::string editorUri(const orvane::PluginEntry& entry) { return pluginUri(entry) + "#editor"; }

}  // namespace lv2_backend

#include "KestroUI/StoreIdentifier.h"

#include "foundation/Bundle.h"

namespace kestroui {

std::optional<std::string> storeIdentifier() {
  const auto info = foundation::Bundle::mainInfoDictionary();
  if (!info) return std::nullopt;
  const auto entry = info->find("StoreIdentifier");
  const auto* text = entry == info->end() ? nullptr : entry->second.as<std::string>();
  return text && !text->empty() ? std::optional(*text) : std::nullopt;
}

}  // namespace kestroui

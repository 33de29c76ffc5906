#include "KestroUI/KeyParts.h"

#include <algorithm>
#include <string>

namespace kestroui {

namespace {

std::string lowerCase(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

/// Calls `visit` with each piece of `text` until it returns true; whether it did.
template <class Visit>
bool anyPiece(std::string_view text, char separator, Visit visit) {
  while (true) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (visit(text.substr(0, end))) return true;
    if (end == text.size()) return false;
    text.remove_prefix(end + 1);
  }
}

bool names(const std::string& text, std::string_view words) {
  return anyPiece(words, '|', [&](std::string_view alternative) {
    return !anyPiece(alternative, ' ',
                     [&](std::string_view word) { return text.find(word) == std::string::npos; });
  });
}

}  // namespace

std::vector<std::optional<std::size_t>> playedParts(
    const std::vector<std::shared_ptr<ParamKey>>& keys, const std::vector<KeyPart>& parts) {
  std::vector<std::optional<std::size_t>> played(parts.size());
  std::vector<std::size_t> unnamed;
  for (std::size_t k = 0; k < keys.size(); ++k) {
    const std::string text = lowerCase(keys[k]->key() + " " + keys[k]->settings().displayName);
    bool named = false, plays = false;
    for (std::size_t p = 0; p < parts.size() && !plays; ++p) {
      if (parts[p].words.empty() || !names(text, parts[p].words)) continue;
      named = true;
      if (played[p]) continue;
      played[p] = k;
      plays = true;
    }
    if (!named) unnamed.push_back(k);
  }
  for (std::size_t p = 0; p < parts.size() && !unnamed.empty(); ++p) {
    if (played[p] || !parts[p].takesUnnamed) continue;
    played[p] = unnamed.front();
    unnamed.erase(unnamed.begin());
  }
  return played;
}

}  // namespace kestroui

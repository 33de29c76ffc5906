#include "Orvane/WebAddress.h"

#include <algorithm>

namespace orvane::WebAddress {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool isUnreserved(char c) {
  return isLetter(c) || isDigit(c) || std::string_view("-._~").find(c) != std::string_view::npos;
}
bool isReserved(char c) {
  return std::string_view(":/?#[]@!$&'()*+,;=").find(c) != std::string_view::npos;
}

}  // namespace

bool isURL(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon + 1 >= text.size()) return false;
  const std::string_view scheme = text.substr(0, colon), rest = text.substr(colon + 1);
  const auto isOfScheme = [](char c) {
    return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
  };
  if (scheme.empty() || !isLetter(scheme[0]) ||
      !std::all_of(scheme.begin(), scheme.end(), isOfScheme))
    return false;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    if (isUnreserved(rest[i]) || isReserved(rest[i])) continue;
    const bool isEscape =
        rest[i] == '%' && i + 2 < rest.size() && isHexDigit(rest[i + 1]) && isHexDigit(rest[i + 2]);
    if (!isEscape) return false;
    i += 2;
  }
  // A web address without a host leads nowhere.
  const bool isWeb = scheme == "http" || scheme == "https";
  return !isWeb || (rest.starts_with("//") && rest.size() > 2 && rest[2] != '/');
}

std::string escaped(std::string_view text) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    if (isUnreserved(c)) {
      result += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    result += {'%', digits[byte >> 4], digits[byte & 15]};
  }
  return result;
}

std::string shown(std::string_view url) {
  const std::size_t scheme = url.find("://");
  if (scheme != std::string_view::npos) url.remove_prefix(scheme + 3);
  if (url.ends_with('/')) url.remove_suffix(1);
  return std::string(url);
}

}  // namespace orvane::WebAddress

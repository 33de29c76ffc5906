#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// Addresses as texts (RFC 3986).
namespace WebAddress {

/// A scheme, a colon and something after it, with no character that a URL may not hold.
bool isURL(std::string_view text);
/// UTF-8 text as a part of a query: all but letters, digits and -._~ as %XX, a blank as %20.
std::string escaped(std::string_view text);
/// As people write it: without the scheme and the slash at its end.
std::string shown(std::string_view url);

}  // namespace WebAddress

}  // namespace orvane

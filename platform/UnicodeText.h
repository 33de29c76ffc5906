#pragma once

#include <string>
#include <string_view>

namespace platform {

/// UTF-8 text in lower case, by the rules that hold in every language; bytes that are no UTF-8
/// become U+FFFD. Implemented in foundation/.
std::string lowercased(std::string_view text);
/// The same in upper case.
std::string uppercased(std::string_view text);
/// Whether every byte is part of a well-formed character.
bool isUTF8(std::string_view text);

}  // namespace platform

#pragma once

#include <string>
#include <string_view>

namespace foundation {

/// UTF-8 text in lower case, by the rules that hold in every language; bytes that are no UTF-8
/// become U+FFFD. An accent is one with its letter, in whichever form it was written, so that texts
/// which read the same become the same.
std::string lowercased(std::string_view text);
/// The same in upper case.
std::string uppercased(std::string_view text);
/// Whether every byte is part of a well-formed character.
bool isUTF8(std::string_view text);
/// Whether two texts are the same to a reader: accents may be one with their letter in the one and
/// follow it in the other, as in the names of files that come from other systems.
bool isSameText(std::string_view a, std::string_view b);

}  // namespace foundation

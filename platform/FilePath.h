#pragma once

#include <string>
#include <string_view>

namespace platform {

// Paths are strings with "/" between their components, in UTF-8 where people read them; the file
// system's own bytes are never changed.

/// What follows the last "/", itself "/" at the end left aside.
inline std::string lastPathComponent(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  const std::size_t slash = path.rfind('/');
  return std::string(slash == path.npos || path.size() == 1 ? path : path.substr(slash + 1));
}

/// What follows the last "." of the last component, without it; empty when there is none, and for
/// a name that only begins with one.
inline std::string pathExtension(std::string_view path) {
  const std::string name = lastPathComponent(path);
  const std::size_t dot = name.rfind('.');
  return dot == name.npos || dot == 0 ? std::string() : name.substr(dot + 1);
}

/// The last component without its extension; only the last one is removed.
inline std::string fileStem(std::string_view path) {
  std::string name = lastPathComponent(path);
  const std::size_t dot = name.rfind('.');
  if (dot != name.npos && dot != 0) name.resize(dot);
  return name;
}

/// Whether a file of this name lies in the folder that the name is appended to, and not elsewhere.
inline bool isFileName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

}  // namespace platform

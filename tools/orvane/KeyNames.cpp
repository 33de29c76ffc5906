#include "tools/orvane/KeyNames.h"

#include <string>
#include <utility>

#include "tools/orvane/Text.h"
#include "tools/orvane/ToolError.h"

namespace tool {

using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;

namespace {

constexpr std::pair<std::string_view, Key> keys[] = {
    {"return", Key::returnKey},
    {"escape", Key::escape},
    {"tab", Key::tab},
    {"space", Key::space},
    {"backspace", Key::backspace},
    {"delete", Key::deleteForward},
    {"left", Key::left},
    {"right", Key::right},
    {"up", Key::up},
    {"down", Key::down},
    {"pageup", Key::pageUp},
    {"pagedown", Key::pageDown},
    {"home", Key::home},
    {"end", Key::end},
};

constexpr std::pair<std::string_view, Modifiers> modifiers[] = {
    {"shift+", Modifiers::shift},
    {"control+", Modifiers::control},
    {"alt+", Modifiers::alt},
    {"command+", Modifiers::command},
};

}  // namespace

KeyEvent keyEventOf(std::string_view name) {
  KeyEvent event;
  std::string_view rest = name;
  for (bool found = true; found;) {
    found = false;
    for (const auto& [prefix, modifier] : modifiers) {
      if (!rest.starts_with(prefix)) continue;
      event.modifiers = event.modifiers | modifier;
      rest.remove_prefix(prefix.size());
      found = true;
    }
  }
  for (const auto& [keyName, key] : keys) {
    if (rest != keyName) continue;
    event.key = key;
    if (key == Key::space) event.text.assign(1, ' ');
    return event;
  }
  const bool isOneCharacter =
      rest.size() == 1 && static_cast<unsigned char>(rest[0]) > 0x20 && rest[0] != 0x7F;
  if (!isOneCharacter) throw Failure("no key " + inQuotes(name));
  event.text.assign(rest);
  return event;
}

}  // namespace tool

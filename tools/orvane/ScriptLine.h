#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/orvane/Target.h"

namespace tool {

/// One line of a script: a command and what follows it.
class ScriptLine {
 public:
  explicit ScriptLine(std::string_view line);

  /// Blank lines and lines that begin with # say nothing.
  bool isEmpty() const { return command_.empty() || command_[0] == '#'; }
  const std::string& command() const { return command_; }
  /// What follows the command, word by word; \" and \\ stand for themselves within quotes. Throws a
  /// Failure for a quote that is not closed.
  std::vector<Word> words() const;
  /// What follows the command as one text, as it stands or in quotes.
  std::string text() const;

 private:
  std::string command_;
  std::string rest_;
};

}  // namespace tool

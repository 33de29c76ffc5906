#include "tools/orvane/ScriptLine.h"

#include <algorithm>

#include "tools/orvane/ToolError.h"

namespace tool {

namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Takes a quoted word from the front of `text`, which begins with a quote.
Word takeQuoted(std::string_view& text) {
  Word word{"", true};
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') {
      text.remove_prefix(i + 1);
      if (!text.empty() && blanks.find(text[0]) == std::string_view::npos)
        throw Failure("a blank is missing after a closing quote");
      return word;
    }
    if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '"' || text[i + 1] == '\\')) ++i;
    word.text += text[i];
  }
  throw Failure("a quote is not closed");
}

}  // namespace

ScriptLine::ScriptLine(std::string_view line) {
  line = trimmed(line);
  const std::size_t end = std::min(line.find_first_of(blanks), line.size());
  command_ = line.substr(0, end);
  rest_ = trimmed(line.substr(end));
}

std::vector<Word> ScriptLine::words() const {
  std::vector<Word> words;
  std::string_view text = rest_;
  while (!(text = trimmed(text)).empty()) {
    if (text[0] == '"') {
      words.push_back(takeQuoted(text));
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    words.push_back({std::string(text.substr(0, end)), false});
    text.remove_prefix(end);
  }
  return words;
}

std::string ScriptLine::text() const {
  if (rest_.starts_with('"') && rest_.ends_with('"') && rest_.size() > 1) {
    std::string_view text = rest_;
    const Word word = takeQuoted(text);
    if (text.empty()) return word.text;
  }
  return rest_;
}

}  // namespace tool

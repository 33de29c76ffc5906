#include "tools/orvane/ArgumentParser.h"

#include <algorithm>
#include <utility>

#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"

namespace tool {

ArgumentParser::ArgumentParser(std::string command, const std::vector<std::string>& words,
                               std::vector<std::string> options,
                               const std::vector<std::string>& flags)
    : command_(std::move(command)) {
  options.insert(options.end(), {"--data", "--cloud"});
  bool onlyPositionals = false, afterSize = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (onlyPositionals || word.size() < 2 || word[0] != '-') {
      // `--size 480x320 1024x768`: the sizes that follow belong to the same option.
      afterSize = afterSize && parseSize(word);
      if (afterSize)
        given_.push_back({"--size", word});
      else
        positionals_.push_back(word);
      continue;
    }
    if (word == "--") {
      onlyPositionals = true;
      afterSize = false;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string option = word.substr(0, equals);
    if (std::find(flags.begin(), flags.end(), word) != flags.end()) {
      given_.push_back({word, ""});
      afterSize = false;
      continue;
    }
    if (std::find(flags.begin(), flags.end(), option) != flags.end())
      fail(option + " takes no value");
    if (std::find(options.begin(), options.end(), option) == options.end())
      fail("unknown option " + inQuotes(option));
    if (equals != std::string::npos)
      given_.push_back({option, word.substr(equals + 1)});
    else if (i + 1 < words.size())
      given_.push_back({option, words[++i]});
    else
      fail(option + " needs a value");
    afterSize = option == "--size";
  }
}

std::string ArgumentParser::positional(std::string_view name) {
  if (nextPositional_ == positionals_.size()) fail(std::string(name) + " is missing");
  return positionals_[nextPositional_++];
}

std::optional<std::string> ArgumentParser::optionalPositional() {
  if (nextPositional_ == positionals_.size()) return std::nullopt;
  return positionals_[nextPositional_++];
}

std::optional<std::string> ArgumentParser::text(std::string_view option) const {
  for (auto it = given_.rbegin(); it != given_.rend(); ++it)
    if (it->option == option) return it->value;
  return std::nullopt;
}

std::optional<platform::Size> ArgumentParser::size(std::string_view option) const {
  const auto all = sizes(option);
  if (all.size() > 1) fail(std::string(option) + " is given twice");
  return all.empty() ? std::nullopt : std::optional(all.front());
}

std::vector<platform::Size> ArgumentParser::sizes(std::string_view option) const {
  std::vector<platform::Size> sizes;
  for (const Given& given : given_) {
    if (given.option != option) continue;
    const auto size = parseSize(given.value);
    if (!size)
      fail(given.option + " wants WIDTHxHEIGHT in points, such as 1024x768, not " +
           inQuotes(given.value));
    sizes.push_back(*size);
  }
  return sizes;
}

std::optional<int> ArgumentParser::count(std::string_view option) const {
  const auto value = text(option);
  if (!value) return std::nullopt;
  const auto number = parseCount(*value);
  if (!number)
    fail(std::string(option) + " wants a whole number from 0 on, not " + inQuotes(*value));
  return number;
}

std::optional<double> ArgumentParser::number(std::string_view option, double maximum) const {
  const auto value = text(option);
  if (!value) return std::nullopt;
  const auto number = parseNumber(*value);
  if (!number || *number <= 0 || *number > maximum)
    fail(std::string(option) + " wants a number above 0 and at most " +
         std::to_string(static_cast<int>(maximum)) + ", not " + inQuotes(*value));
  return number;
}

void ArgumentParser::finish() const {
  if (nextPositional_ < positionals_.size())
    fail("unexpected argument " + inQuotes(positionals_[nextPositional_]));
}

void ArgumentParser::fail(const std::string& what) const {
  throw UsageError("orvane " + command_ + ": " + what);
}

}  // namespace tool

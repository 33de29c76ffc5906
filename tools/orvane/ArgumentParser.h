#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace tool {

/// Takes the arguments of one command apart. Everything that is wrong is a UsageError that names
/// the command.
///
///     ArgumentParser arguments("tree", words, {"--size", "--page"});
///     const std::string plugin = arguments.positional("PLUGIN");
///     const auto size = arguments.size("--size");
///     arguments.finish();
class ArgumentParser {
 public:
  /// `options` are the command's own, each with one value; --data and --cloud belong to every
  /// command. `flags` have no value.
  ArgumentParser(std::string command, const std::vector<std::string>& words,
                 std::vector<std::string> options, const std::vector<std::string>& flags = {});

  /// The next argument that is no option; an error when there is none.
  std::string positional(std::string_view name);
  /// The next argument that is no option, if there is one.
  std::optional<std::string> optionalPositional();
  bool flag(std::string_view name) const { return text(name).has_value(); }
  /// The last value given.
  std::optional<std::string> text(std::string_view option) const;
  std::optional<platform::Size> size(std::string_view option) const;
  /// Every size given, also several after one option.
  std::vector<platform::Size> sizes(std::string_view option) const;
  /// A whole number from 0 on.
  std::optional<int> count(std::string_view option) const;
  /// A number above 0 and at most `maximum`.
  std::optional<double> number(std::string_view option, double maximum) const;
  /// An error when arguments are left.
  void finish() const;

  [[noreturn]] void fail(const std::string& what) const;

 private:
  struct Given {
    std::string option;
    std::string value;
  };

  std::string command_;
  std::vector<Given> given_;
  std::vector<std::string> positionals_;
  std::size_t nextPositional_ = 0;
};

}  // namespace tool

#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"

namespace orvane {

/// The sections of a design as hosts show a plug-in's parameters without its editor: each parameter is
/// in the first section that names it, or whose control drives it. Sections without parameters of
/// their own are left out.
class ParameterGroups {
 public:
  struct Group {
    /// No two are the same.
    std::string name;
  };

  /// `keys` are those of all parameters.
  ParameterGroups(const AUDesign& design, const std::vector<std::string>& keys);

  /// In the design's order.
  const std::vector<Group>& groups() const { return groups_; }
  /// Null when no section names the parameter.
  const Group* groupOf(const std::string& parameterKey) const;

 private:
  void addSection(const Section& section, const std::string& pageTitle);
  std::string uniqueName(const std::string& section, const std::string& page);

  /// Keys of the parameters that have no group yet.
  std::set<std::string> ungrouped_;
  /// Keys that the control of a key drives as well.
  std::map<std::string, std::vector<std::string>> attached_;
  std::set<std::string> names_;
  std::vector<Group> groups_;
  /// Index into groups_ by key.
  std::map<std::string, std::size_t> groupOfKey_;
};

}  // namespace orvane

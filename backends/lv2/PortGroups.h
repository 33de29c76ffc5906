#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"
#include "backends/lv2/PortLayout.h"

namespace lv2_backend {

/// The sections of a design as hosts without our editor show them: each parameter is in the first
/// section that names it. Sections without parameters of their own are left out.
class PortGroups {
 public:
  struct Group {
    std::string symbol;
    /// No two are the same.
    std::string name;
  };

  PortGroups(const orvane::AUDesign& design, const PortLayout& layout);

  const std::vector<Group>& groups() const { return groups_; }
  /// Null when no section names the parameter.
  const Group* groupOf(const std::string& parameterKey) const;

 private:
  void addSection(const orvane::Section& section, const std::string& pageTitle);
  std::string uniqueName(const std::string& section, const std::string& page);

  /// Keys of the parameters that have no group yet.
  std::set<std::string> ungrouped_;
  /// Keys that the control of a key drives as well.
  std::map<std::string, std::vector<std::string>> attached_;
  std::set<std::string> names_;
  SymbolSet symbols_;
  std::vector<Group> groups_;
  /// Index into groups_ by key.
  std::map<std::string, std::size_t> groupOfKey_;
};

}  // namespace lv2_backend

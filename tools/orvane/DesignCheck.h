#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"
#include "backends/headless/HeadlessHost.h"
#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/Problems.h"

namespace tool {

/// Looks for what the layout of a design cannot do, where the editor would stop the program or
/// leave something out. Places are those of a description's file.
class DesignCheck {
 public:
  /// What is wrong with a key that the design names; empty for nothing.
  using KeyProblem = std::function<std::string(const std::string& key)>;

  /// `foot` is the foot strip and outlives the check.
  DesignCheck(Problems& problems, KeyProblem keyProblem,
              const std::vector<std::optional<std::string>>& foot);

  void check(const std::vector<DescribedPage>& pages);

 private:
  void checkFoot();
  void checkPage(const DescribedPage& page, const std::string& place);
  void checkRows(const DescribedPage& page, const std::string& place);
  void checkSection(const orvane::Section& section, const std::string& place);
  void checkColumn(const orvane::UIColumn& column, const std::string& place);
  /// Whether nothing is wrong with the key.
  bool checkKey(const std::string& key, const std::string& place);
  /// The key's control has its place here; it can have only one at a time.
  void takePlace(const std::string& key, const std::string& place);
  void add(const std::string& place, std::string text);

  Problems& problems_;
  KeyProblem keyProblem_;
  const std::vector<std::optional<std::string>>& foot_;
  /// Where each key has its place on the page that is being checked.
  std::map<std::string, std::string> places_;
};

/// Looks at every page of an editor at the size that it has now, and adds what nobody could use or
/// what lies where it does not belong: controls that are too small, that leave their section or
/// cover another that is no sibling; sections that leave their page or cover another.
void checkLayout(headless::HeadlessHost& host, Problems& problems);
/// Adds the parameters that no control of any page drives. After checkLayout, by which each page has
/// been shown.
void checkUse(headless::HeadlessHost& host, Problems& problems);

}  // namespace tool

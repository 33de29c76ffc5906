#pragma once

#include <optional>
#include <string>
#include <vector>

namespace bench {

/// One line of the table.
struct Row {
  /// What a goal is compared with; either is to be at most the goal.
  enum class Goal { ratio, figure };

  /// Names the row in JSON.
  std::string key{};
  std::string title{};
  std::string unit{};
  double ours = 0;
  std::optional<double> stock{};
  /// Instead of ours / stock.
  std::optional<double> ratio{};
  std::optional<double> goal{};
  Goal goalFor = Goal::ratio;
};

/// The figures in the order in which they were measured.
class Report {
 public:
  /// Prints the row at once.
  void add(Row row);
  static void printHead();
  /// False when the file cannot be written.
  bool writeJson(const std::string& path) const;

 private:
  std::vector<Row> rows_;
};

}  // namespace bench

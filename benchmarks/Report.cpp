#include "benchmarks/Report.h"

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

namespace bench {
namespace {

std::string figure(double value) {
  char text[32];
  std::snprintf(text, sizeof text, value != 0 && value < 0.1 ? "%.4f" : "%.2f", value);
  return text;
}

std::optional<double> ratioOf(const Row& row) {
  if (row.ratio) return row.ratio;
  if (row.stock && *row.stock > 0) return row.ours / *row.stock;
  return std::nullopt;
}

bool isMet(const Row& row) {
  return row.goalFor == Row::Goal::figure ? row.ours <= *row.goal
                                          : ratioOf(row).value_or(0) <= *row.goal;
}

void printLine(const std::string& title, const std::string& unit, const std::string& ours,
               const std::string& stock, const std::string& ratio, const std::string& goal,
               const std::string& verdict) {
  std::printf("%-50s %-5s %9s %9s %8s %9s  %s\n", title.c_str(), unit.c_str(), ours.c_str(),
              stock.c_str(), ratio.c_str(), goal.c_str(), verdict.c_str());
  std::fflush(stdout);
}

}  // namespace

void Report::printHead() { printLine("", "", "ours", "stock", "ratio", "goal", ""); }

void Report::add(Row row) {
  const std::optional<double> ratio = ratioOf(row);
  std::string goal, verdict;
  if (row.goal) {
    goal = "<= " + figure(*row.goal) + (row.goalFor == Row::Goal::ratio ? " x" : "");
    verdict = isMet(row) ? "met" : "missed";
  }
  printLine(row.title, row.unit, figure(row.ours), row.stock ? figure(*row.stock) : "",
            ratio ? figure(*ratio) : "", goal, verdict);
  rows_.push_back(std::move(row));
}

bool Report::writeJson(const std::string& path) const {
  nlohmann::ordered_json rows = nlohmann::ordered_json::array();
  for (const Row& row : rows_) {
    nlohmann::ordered_json entry{
        {"key", row.key}, {"title", row.title}, {"unit", row.unit}, {"ours", row.ours}};
    if (row.stock) entry["stock"] = *row.stock;
    if (const auto ratio = ratioOf(row)) entry["ratio"] = *ratio;
    if (row.goal) {
      entry["goal"] = *row.goal;
      entry["goalFor"] = row.goalFor == Row::Goal::ratio ? "ratio" : "ours";
      entry["met"] = isMet(row);
    }
    rows.push_back(std::move(entry));
  }
  std::ofstream file(path);
  file << rows.dump(2) << '\n';
  return static_cast<bool>(file.flush());
}

}  // namespace bench

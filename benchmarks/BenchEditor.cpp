#include "benchmarks/BenchEditor.h"

namespace bench {
namespace {

using platform::Color;

const Color accents[] = {Color::rgb(0x4ea1ff), Color::rgb(0xffb454), Color::rgb(0x7fd962),
                         Color::rgb(0xd2a6ff)};

std::vector<quillon::ParameterDescription> descriptions(int count) {
  std::vector<quillon::ParameterDescription> result;
  for (int i = 0; i < count; ++i)
    result.push_back({.key = benchKey(i),
                      .address = static_cast<platform::AUParameterAddress>(i),
                      .displayName = "Knob " + std::to_string(i + 1),
                      .defaultValue = benchValue(i),
                      .publishesLive = i < BenchAudioUnit::modulatedCount});
  return result;
}

class BenchDesign : public orvane::AUDesign {
 public:
  explicit BenchDesign(const Grid& grid) : grid_(grid) {}

  std::vector<std::shared_ptr<orvane::Page>> pages() const override {
    std::vector<orvane::UISection> sections;
    int next = 0;
    for (int row = 0; row < grid_.sectionRows; ++row)
      for (int column = 0; column < grid_.sectionColumns; ++column)
        sections.emplace_back(section(static_cast<int>(sections.size()), next), 1, row, 1, 0);
    return {std::make_shared<orvane::Page>(std::move(sections), "ALL")};
  }

 private:
  std::shared_ptr<orvane::Section> section(int number, int& next) const {
    std::vector<orvane::UIColumn> columns(static_cast<std::size_t>(grid_.columns));
    for (orvane::UIColumn& column : columns)
      for (int row = 0; row < grid_.rows; ++row)
        column.params.emplace_back(benchKey(next++), std::vector<std::optional<std::string>>{}, 1,
                                   0, 1);
    return std::make_shared<orvane::Section>(
        std::move(columns), "SECTION " + std::to_string(number + 1), accents[number % 4],
        std::nullopt, std::nullopt, false, true);
  }

  const Grid grid_;
};

}  // namespace

std::string benchKey(int index) { return "knob" + std::to_string(index); }

BenchAudioUnit::BenchAudioUnit(int count) : CommonAudioUnit(descriptions(count)) {}

void BenchAudioUnit::modulate(float value, bool modulated) {
  for (std::size_t i = 0; i < modulatedCount; ++i) {
    publishLive(i, value);
    publishModulating(i, modulated);
  }
}

std::shared_ptr<orvane::AUDesign> BenchController::design() {
  return std::make_shared<BenchDesign>(grid_);
}

BenchEditor::BenchEditor(BenchAudioUnit& unit, const Grid& grid, const std::string& groupId)
    : component_([&] { return std::make_unique<BenchController>(unit, grid, groupId); }) {
  for (int i = 0; i < grid.count(); ++i)
    knobs_.push_back(controller().container(benchKey(i)).get());
}

}  // namespace bench

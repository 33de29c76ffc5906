#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/ParamKey.h"
#include "KestroUI/ParameterUISettings.h"
#include "platform/Color.h"

namespace orvane {

/// One slot of a column: the control of a parameter and how much room it takes.
struct UIParameter {
  UIParameter() = default;
  UIParameter(std::string param_, std::vector<std::optional<std::string>> siblings_,
              double verticalWeightInColumn_, double verticalOffsetInColumn_, double widthRatio_)
      : param(std::move(param_)),
        verticalWeightInColumn(verticalWeightInColumn_),
        verticalOffsetInColumn(verticalOffsetInColumn_),
        widthRatio(widthRatio_),
        siblings(std::move(siblings_)) {}

  /// Key of the parameter whose control stands here.
  std::string param;
  double verticalWeightInColumn = 1;
  /// Free space above, in the unit of the weights; pushes all later slots down as well.
  double verticalOffsetInColumn = 0;
  /// Share of the column's width that the control takes, from its left edge.
  double widthRatio = 1;
  /// Keys of parameters whose controls lie in the same place, later ones on top.
  std::vector<std::optional<std::string>> siblings;
};

/// One column of a section.
struct UIColumn {
  /// From top to bottom.
  std::vector<UIParameter> params;
  double horizontalWeightInSection = 1;
};

/// A titled panel of parameters. Shared by the design, its page and the view that shows it.
class Section {
 public:
  Section(std::vector<UIColumn> stack_, std::string name_, platform::Color color_,
          std::optional<std::string> stateParameter_, std::optional<std::string> feedbackParameter_,
          bool fillNameSpace_, bool displayGradient_)
      : name(std::move(name_)),
        color(color_),
        stack(std::move(stack_)),
        fillNameSpace(fillNameSpace_),
        displayGradient(displayGradient_),
        stateParameter(std::move(stateParameter_)),
        feedbackParameter(std::move(feedbackParameter_)) {}

  /// Shown as its title; names it within its page.
  std::string name;
  /// Tints its background and its controls.
  platform::Color color;
  /// From left to right.
  std::vector<UIColumn> stack;
  /// Its controls take the place of the title.
  bool fillNameSpace = false;
  bool displayGradient = true;
  /// Key of the parameter that switches the section on and off.
  std::optional<std::string> stateParameter;
  /// Key of the parameter whose control is shown small in the top right corner.
  std::optional<std::string> feedbackParameter;
};

/// The place of a section on its page.
struct UISection {
  UISection(std::shared_ptr<Section> section_, double horizontalWeightInPage_,
            std::int64_t rowIndex_, double verticalWeightInPage_, std::int64_t columnOffset_)
      : section(std::move(section_)),
        horizontalWeightInPage(horizontalWeightInPage_),
        rowIndex(rowIndex_),
        verticalWeightInPage(verticalWeightInPage_),
        columnOffset(columnOffset_) {}

  std::shared_ptr<Section> section;
  /// Share of the width of its row.
  double horizontalWeightInPage;
  /// Sections that follow each other with the same number form a row; the first has 0.
  std::int64_t rowIndex;
  /// Share of the height of the page.
  double verticalWeightInPage;
  /// For the first section of a row: below which section of the previous row the row begins,
  /// counted from 0.
  std::int64_t columnOffset;
};

/// One page of a design. Shared by whoever shows it.
class Page {
 public:
  /// Computes the totals; they are not computed again when `sections` changes.
  Page(std::vector<UISection> sections, std::string title);

  const std::string& title() const { return title_; }

  std::vector<UISection> sections;
  /// Weight of the widest row; 0 without sections.
  double totalWidth = 0;
  /// Sum of the weights of the rows, each as high as its least high section; 0 without sections.
  double totalHeight = 0;

 private:
  std::string title_;
};

using ParameterUISettings = kestroui::ParameterUISettings;

/// What a plug-in's editor shows: pages of sections of columns of parameters, named by key, and
/// how the control of each parameter is built. Pure data; a plug-in derives from it:
///
///     std::vector<std::shared_ptr<Page>> pages() const override {
///       auto tone = std::make_shared<Section>(
///           std::vector<UIColumn>{{{{"cutoff", {}, 1, 0, 1}, {"resonance", {}, 1, 0, 1}}, 1}},
///           "FILTER", Color::rgb(0x4ea1ff), std::nullopt, std::nullopt, false, true);
///       return {std::make_shared<Page>(std::vector<UISection>{{tone, 1, 0, 1, 0}}, "TONE")};
///     }
class AUDesign {
 public:
  virtual ~AUDesign() = default;

  /// The pages in their order, built anew by each call: callers keep the result. One empty page
  /// in the base class.
  virtual std::vector<std::shared_ptr<Page>> pages() const;

  /// How each parameter is shown. A parameter that is used on a page and not named here gets the
  /// plain control for its unit. Empty in the base class.
  virtual std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const;
};

}  // namespace orvane

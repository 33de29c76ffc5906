#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"
#include "Orvane/ControlCollection.h"
#include "toolkit/Label.h"
#include "toolkit/Layer.h"
#include "toolkit/View.h"

namespace orvane {

/// Shows one section: a panel with its title, the controls of its columns, and in the corners the
/// control that switches it and the one that gives feedback. It places controls and adopts them as
/// subviews while its page is shown; the collection owns them. User-interface thread only.
class SectionView : public toolkit::View {
 public:
  /// `controls` may be null; one without keys counts as not filled yet, and nothing is placed.
  SectionView(std::shared_ptr<Section> section, std::shared_ptr<ControlCollection> controls);
  ~SectionView() override;

  Section& section() const { return *section_; }
  const std::string& title() const { return title_; }
  platform::Color color() const { return color_; }
  void setColor(platform::Color color);
  /// Selects the smaller title font.
  bool usePages() const { return usePages_; }
  void setUsePages(bool usePages);

  /// Its page is the one shown.
  bool isVisible() const { return visible_; }
  /// True adopts its controls, also when it was true before.
  void setIsVisible(bool visible);

  /// The control of a key, or null when there is no collection or the key has no control. A key
  /// that the collection does not know is fatal.
  std::shared_ptr<kestroui::Container> container(const std::string& key) const;
  /// Shows the controls that stand here as inactive while the state parameter is below 1.
  void updateState();
  /// Undoes what standing here did to a control, which is about to stand elsewhere.
  void release(kestroui::Container& container);

  /// Does nothing while it is not visible; else all its subviews are displayed anew as well.
  void setNeedsDisplay() override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  /// A control of the section as it was when it was last looked up; null where a key has none.
  struct Entry {
    std::shared_ptr<kestroui::ParamKey> key;
    kestroui::Container* container = nullptr;
  };

  /// Looks the controls up again when the collection or the section has changed since.
  void resolve();
  bool isResolved() const;
  Entry lookUp(const std::string& key) const;
  /// Makes its controls subviews, in the design's order.
  void adoptAll();
  /// Whether a control may be taken from where it is. A section takes the controls of its slots
  /// from any other; what sections share (siblings, corners) only from one that is not shown.
  enum class Claim { slot, shared };
  bool canAdopt(const kestroui::Container& container, Claim claim) const;
  void adopt(const Entry& entry);
  void place(const Entry& entry, const platform::Rect& frame);
  /// A control without its title, for which a corner has no room.
  using Untitled = platform::Weak<kestroui::Container>;
  /// One that also has a slot here stands there, with its title.
  void placeInCorner(const Entry& entry, const platform::Rect& frame, Untitled& untitled);
  void layoutTitle(double bandHeight);
  void layoutSlots(double bandHeight);

  std::shared_ptr<Section> section_;
  std::shared_ptr<ControlCollection> controls_;
  std::string title_;
  platform::Color color_ = platform::Color::white();
  bool usePages_ = false;
  bool visible_ = false;
  toolkit::GradientLayer gradient_;
  toolkit::Label titleLabel_;

  /// The own control of every slot, each followed by its siblings.
  std::vector<Entry> slots_;
  Entry state_;
  Entry feedback_;
  Untitled untitledState_, untitledFeedback_;
  std::uint64_t resolvedGeneration_ = 0;
};

}  // namespace orvane

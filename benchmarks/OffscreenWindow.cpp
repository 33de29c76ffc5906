#include "benchmarks/OffscreenWindow.h"

#include <cmath>
#include <memory>

#include "backends/juce/Picture.h"

namespace bench {

class OffscreenWindow::Peer : public juce::ComponentPeer {
 public:
  Peer(OffscreenWindow& window, int styleFlags, double scale)
      : ComponentPeer(window, styleFlags),
        scale_(scale),
        bounds_(window.getLocalBounds()),
        // What JUCE paints opaque windows into with shared memory: no alpha, 32 bits a pixel.
        picture_(
            juce_backend::makePicture(static_cast<int>(std::ceil(bounds_.getWidth() * scale)),
                                      static_cast<int>(std::ceil(bounds_.getHeight() * scale)))) {}

  bool isDirty() const { return !dirty_.isEmpty(); }
  int repaintRequests() const { return repaintRequests_; }
  const juce::Image& picture() const { return picture_; }

  void repaint(const juce::Rectangle<int>& area) override {
    ++repaintRequests_;
    dirty_.add((area.toDouble() * scale_).getSmallestIntegerContainer());
  }
  void performAnyPendingRepaintsNow() override {
    const juce::RectangleList<int> area = dirty_;
    dirty_.clear();
    if (area.isEmpty()) return;
    for (const juce::Rectangle<int>& part : area) picture_.clear(part);
    const std::unique_ptr<juce::LowLevelGraphicsContext> context =
        component.getLookAndFeel().createGraphicsContext(picture_, {}, area);
    context->addTransform(juce::AffineTransform::scale(static_cast<float>(scale_)));
    handlePaint(*context);
  }

  void* getNativeHandle() const override { return nullptr; }
  void setVisible(bool) override {}
  void setTitle(const juce::String&) override {}
  void setBounds(const juce::Rectangle<int>&, bool) override {}
  juce::Rectangle<int> getBounds() const override { return bounds_; }
  juce::Point<float> localToGlobal(juce::Point<float> place) override { return place; }
  juce::Point<float> globalToLocal(juce::Point<float> place) override { return place; }
  using ComponentPeer::globalToLocal;
  using ComponentPeer::localToGlobal;
  void setMinimised(bool) override {}
  bool isMinimised() const override { return false; }
  void setFullScreen(bool) override {}
  bool isFullScreen() const override { return false; }
  void setIcon(const juce::Image&) override {}
  bool contains(juce::Point<int> place, bool) const override { return bounds_.contains(place); }
  OptionalBorderSize getFrameSizeIfPresent() const override { return {}; }
  juce::BorderSize<int> getFrameSize() const override { return {}; }
  bool setAlwaysOnTop(bool) override { return true; }
  void toFront(bool) override {}
  void toBehind(ComponentPeer*) override {}
  bool isFocused() const override { return false; }
  void grabFocus() override {}
  void textInputRequired(juce::Point<int>, juce::TextInputTarget&) override {}
  void setAlpha(float) override {}
  juce::StringArray getAvailableRenderingEngines() override { return {"Software"}; }

 private:
  const double scale_;
  const juce::Rectangle<int> bounds_;
  juce::Image picture_;
  juce::RectangleList<int> dirty_;
  int repaintRequests_ = 0;
};

OffscreenWindow::OffscreenWindow(int width, int height, double scale) : scale_(scale) {
  setOpaque(true);
  setSize(width, height);
  addToDesktop(0);
  setVisible(true);
}

OffscreenWindow::~OffscreenWindow() { removeFromDesktop(); }

juce::ComponentPeer* OffscreenWindow::createNewPeer(int styleFlags, void*) {
  peer_ = new Peer(*this, styleFlags, scale_);
  return peer_;
}

void OffscreenWindow::show(juce::Component& content) {
  content.setBounds(getLocalBounds());
  addAndMakeVisible(content);
}

bool OffscreenWindow::isDirty() const { return peer_->isDirty(); }
void OffscreenWindow::paintNow() { peer_->performAnyPendingRepaintsNow(); }
int OffscreenWindow::repaintRequests() const { return peer_->repaintRequests(); }
const juce::Image& OffscreenWindow::picture() const { return peer_->picture(); }

}  // namespace bench

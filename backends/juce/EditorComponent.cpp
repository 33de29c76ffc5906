#include "backends/juce/EditorComponent.h"

#include <cmath>

#include "KestroUI/Container.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetViewOverlay.h"
#include "backends/juce/DroppedPresets.h"
#include "backends/juce/JuceCanvas.h"
#include "backends/juce/JuceInput.h"
#include "backends/juce/OpenLink.h"
#include "backends/juce/PluginBundle.h"
#include "platform/FilePath.h"

namespace juce_backend {
namespace {

EditorComponent::ControllerFactory controllerFor(const orvane::PluginEntry& entry,
                                                 platform::AudioUnit& audioUnit) {
  return [&entry, &audioUnit] {
    ensureMainBundle(entry);
    std::unique_ptr<orvane::KestroAUViewController> controller = entry.createViewController();
    controller->setAudioUnit(&audioUnit);
    return controller;
  };
}

int touchId(const juce::MouseInputSource& source) {
  return toTouchId(source.getType(), source.getIndex());
}

}  // namespace

bool EditorComponent::Program::open(const std::string& url) { return openLink(url); }

EditorComponent::ShowingWatcher::ShowingWatcher(EditorComponent& owner)
    : juce::ComponentMovementWatcher(&owner), owner_(owner) {}

EditorComponent::EditorComponent(const ControllerFactory& makeController)
    : controller_(makeController()) {
  setOpaque(true);
  setLookAndFeel(&*look_);
  setWantsKeyboardFocus(true);
  // Of screen readers; the keyboard is the window's business.
  setFocusContainerType(FocusContainerType::focusContainer);
  host_.addChild(*controller_);
  window_.setRootViewController(&host_);
  host_.view().addSubview(controller_->view());
  // What shows through the editor must not be what was there before.
  if (controller_->view().backgroundColor().alpha < 1)
    host_.view().setBackgroundColor(platform::Color::black());
}

EditorComponent::EditorComponent(const orvane::PluginEntry& entry, platform::AudioUnit& audioUnit)
    : EditorComponent(controllerFor(entry, audioUnit)) {
  setSize(static_cast<int>(std::lround(entry.preferredSize.width)),
          static_cast<int>(std::lround(entry.preferredSize.height)));
}

EditorComponent::~EditorComponent() {
  setLookAndFeel(nullptr);
  if (hasAppeared_) host_.disappear();
  window_.setRootViewController(nullptr);
  runLoop_->cancelFrame(*this);
}

void EditorComponent::updateShowing() {
  if (isShowing() == hasAppeared_) return;
  hasAppeared_ = !hasAppeared_;
  if (hasAppeared_) {
    host_.appear();
    if (window_.needsFrame()) frameWanted();
  } else {
    window_.cancelTouches();
    touches_.clear();
    host_.disappear();
  }
}

AccessibleEditor& EditorComponent::accessibleEditor() {
  if (!accessibleEditor_)
    accessibleEditor_ = std::make_unique<AccessibleEditor>(*this, host_.view());
  return *accessibleEditor_;
}

std::unique_ptr<juce::AccessibilityHandler> EditorComponent::createAccessibilityHandler() {
  accessibleEditor();
  return std::make_unique<juce::AccessibilityHandler>(*this, juce::AccessibilityRole::group);
}

void EditorComponent::resized() {
  const platform::Size size{static_cast<double>(getWidth()), static_cast<double>(getHeight())};
  window_.setSize(size);
  controller_->view().setFrame({0, 0, size.width, size.height});
  presentation_.alertPanel().setFrame({0, 0, size.width, size.height});
}

std::string EditorComponent::clipboardText() {
  return juce::SystemClipboard::getTextFromClipboard().toStdString();
}

void EditorComponent::setClipboardText(const std::string& text) {
  juce::SystemClipboard::copyTextToClipboard(toText(text));
}

void EditorComponent::frameWanted() {
  if (hasAppeared_) runLoop_->requestFrame(*this);
}

void EditorComponent::displayFrame() {
  if (!hasAppeared_ || !window_.needsFrame()) return;
  if (picture_.isNull()) {
    // The first paint knows the scale and makes the whole picture.
    repaint();
    return;
  }
  // Also what paints nothing may have become modal.
  if (accessibleEditor_) accessibleEditor_->look();
  const std::vector<platform::Rect> damage = window_.prepareFrame();
  if (damage.empty()) return;
  for (const platform::Rect& area : damage) {
    // Lines and glyphs are moved by up to half a pixel.
    const platform::Rect grown = area.inset(-1 / scale_, -1 / scale_);
    composite(juce::Rectangle<double>(grown.x * scale_, grown.y * scale_, grown.width * scale_,
                                      grown.height * scale_)
                  .getSmallestIntegerContainer());
    const auto changed = juce::Rectangle<double>(grown.x, grown.y, grown.width, grown.height)
                             .getSmallestIntegerContainer();
    toCopy_.add(changed);
    repaint(changed);
  }
}

void EditorComponent::composite(juce::Rectangle<int> pixels) {
  const juce::Rectangle<int> area = pixels.getIntersection(picture_.getBounds());
  if (area.isEmpty()) return;
  JuceCanvas canvas(picture_, scale_, area);
  window_.composite(canvas, {area.getX() / scale_, area.getY() / scale_, area.getWidth() / scale_,
                             area.getHeight() / scale_});
}

void EditorComponent::renewPicture(double scale) {
  scale_ = scale;
  picture_ = makePicture(static_cast<int>(std::ceil(getWidth() * scale)),
                         static_cast<int>(std::ceil(getHeight() * scale)));
  window_.prepareFrame();
  composite(picture_.getBounds());
}

void EditorComponent::paint(juce::Graphics& graphics) {
  const double scale = graphics.getInternalContext().getPhysicalPixelScaleFactor();
  const bool fits = scale == scale_ &&
                    picture_.getWidth() == static_cast<int>(std::ceil(getWidth() * scale)) &&
                    picture_.getHeight() == static_cast<int>(std::ceil(getHeight() * scale));
  if (picture_.isNull() || !fits) renewPicture(scale);
  // The picture's pixels are the screen's; smoothing would only blur them.
  graphics.setImageResamplingQuality(juce::Graphics::lowResamplingQuality);

  // What a copy costs goes by the size of the picture and not of the clip, so it is done in parts:
  // what has changed, and of the rest only what the desktop has uncovered.
  const juce::Rectangle<int> clip = graphics.getClipBounds();
  juce::RectangleList<int> uncovered(clip);
  uncovered.subtract(toCopy_);
  for (const juce::Rectangle<int>& part : toCopy_) copy(graphics, part.getIntersection(clip));
  for (const juce::Rectangle<int>& part : uncovered) copy(graphics, part);
  toCopy_.clear();
}

void EditorComponent::copy(juce::Graphics& graphics, juce::Rectangle<int> part) {
  if (!graphics.getInternalContext().clipRegionIntersects(part)) return;
  const juce::Rectangle<int> pixels = (part.toDouble() * scale_)
                                          .getSmallestIntegerContainer()
                                          .getIntersection(picture_.getBounds());
  graphics.drawImageTransformed(picture_.getClippedImage(pixels),
                                juce::AffineTransform::translation(pixels.getPosition().toFloat())
                                    .scaled(static_cast<float>(1 / scale_)));
}

std::string EditorComponent::keyAt(platform::Point point) const {
  for (toolkit::View* view = window_.hitAt(point); view; view = view->superview()) {
    const auto* const container = dynamic_cast<kestroui::Container*>(view);
    if (!container) continue;
    const auto key = container->keyAt(container->convertFromRoot(point));
    return key ? key->key() : std::string();
  }
  return {};
}

void EditorComponent::mouseDown(const juce::MouseEvent& event) {
  if (event.mods.isPopupMenu() && menu) {
    juce::PopupMenu shown = menu(keyAt(toPoint(event.position)));
    if (shown.getNumItems() == 0) return;
    // A menu takes its look before it is inside of anything.
    shown.setLookAndFeel(&*look_);
    shown.showMenuAsync(juce::PopupMenu::Options().withParentComponent(this).withMousePosition());
    return;
  }
  // The other buttons mean nothing to an editor made for fingers.
  if (!event.mods.isLeftButtonDown()) return;
  const int id = touchId(event.source);
  if (!touches_.insert(id).second) return;
  window_.touchBegan(
      id, event.source.isTouch() ? toolkit::Touch::Kind::finger : toolkit::Touch::Kind::mouse,
      toPoint(event.position), event.getNumberOfClicks(), toModifiers(event.mods));
}

void EditorComponent::mouseDrag(const juce::MouseEvent& event) {
  const int id = touchId(event.source);
  if (touches_.count(id)) window_.touchMoved(id, toPoint(event.position), toModifiers(event.mods));
}

void EditorComponent::mouseUp(const juce::MouseEvent& event) {
  const int id = touchId(event.source);
  if (touches_.erase(id)) window_.touchEnded(id, toPoint(event.position), toModifiers(event.mods));
}

void EditorComponent::mouseMove(const juce::MouseEvent& event) {
  if (!event.source.isTouch()) window_.hovered(toPoint(event.position));
}

void EditorComponent::mouseEnter(const juce::MouseEvent& event) { mouseMove(event); }

void EditorComponent::mouseExit(const juce::MouseEvent& event) {
  if (!event.source.isTouch()) window_.hoverEnded();
}

void EditorComponent::mouseWheelMove(const juce::MouseEvent& event,
                                     const juce::MouseWheelDetails& wheel) {
  if (!window_.wheelTurned(toWheelEvent(toPoint(event.position), wheel, event.mods)))
    juce::Component::mouseWheelMove(event, wheel);
}

bool EditorComponent::keyPressed(const juce::KeyPress& key) {
  return window_.keyPressed(toKeyEvent(key));
}

// Files from outside

std::vector<std::string> EditorComponent::importable(const juce::StringArray& paths) {
  auto* editor = dynamic_cast<orvane::KestroAUViewController*>(controller_.get());
  if (!editor || !editor->allowImportAndExport || !editor->audioUnit()) return {};
  // A dialog asks about what is there; no preset comes before its answer.
  const toolkit::View* const modal = window_.uppermostModal();
  if (modal && !dynamic_cast<const orvane::PresetViewOverlay*>(modal)) return {};
  return droppedPresets(paths, editor->audioUnit()->presetExtension());
}

bool EditorComponent::isInterestedInFileDrag(const juce::StringArray& paths) {
  return !importable(paths).empty();
}

void EditorComponent::fileDragEnter(const juce::StringArray& paths, int, int) {
  const std::vector<std::string> presets = importable(paths);
  if (presets.empty()) return;
  const std::string what = presets.size() == 1 ? '"' + platform::fileStem(presets.front()) + '"'
                                               : std::to_string(presets.size()) + " presets";
  dropHint_.show(host_.view(), "Drop to import " + what);
}

void EditorComponent::fileDragExit(const juce::StringArray&) { dropHint_.hide(); }

void EditorComponent::filesDropped(const juce::StringArray& paths, int, int) {
  dropHint_.hide();
  auto* editor = dynamic_cast<orvane::KestroAUViewController*>(controller_.get());
  for (const std::string& preset : importable(paths)) editor->documentPickerAction({preset});
}

}  // namespace juce_backend

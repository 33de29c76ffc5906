#include "Orvane/KestroAUViewController.h"

#include <algorithm>
#include <utility>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/DisplayContainers.h"
#include "KestroUI/Theme.h"
#include "Orvane/ControlBindings.h"
#include "Orvane/OverlayStyle.h"
#include "Orvane/ParameterConnection.h"
#include "Orvane/PresetManager.h"
#include "platform/Fatal.h"
#include "toolkit/Window.h"

namespace orvane {

namespace {

constexpr double checkInterval = 0.1;
/// Content of this height has labels of their natural size.
constexpr double labelHeightUnit = 250;
constexpr double maximumLabelScale = 2.0;

}  // namespace

KestroAUViewController::KestroAUViewController()
    : controls_(std::make_shared<ControlCollection>()),
      bindings_(std::make_shared<ControlBindings>()) {
  presetLibrary().addObserver({this, *this});
  presetSession_.delegate = {this, *this};
}

KestroAUViewController::~KestroAUViewController() {
  letGo();
  tellAudioUnitOfUI(false);
}

void KestroAUViewController::letGo() {
  if (!isViewLoaded()) return;
  if (toolkit::Window* const window = view().window()) window->cancelTouches();
}

std::shared_ptr<AUDesign> KestroAUViewController::design() {
  platform::fatal("Must override this");
}

std::unique_ptr<platform::AudioUnit> KestroAUViewController::createAudioUnit(
    const platform::AudioComponentDescription&) {
  if (!makeAudioUnit) platform::fatal("Must override this");
  return makeAudioUnit();
}

void KestroAUViewController::setAudioUnit(platform::AudioUnit* audioUnit) {
  audioUnit_ = audioUnit;
  presetSession_.setAudioUnit(audioUnit);
  followAudioUnitWithPresets();
}

void KestroAUViewController::viewDidLoad() {
  settingsViewController_.design = design();
  settingsViewController_.controls = controls_;
  settingsViewController_.foot_stack = foot_stack();
  settingsViewController_.footHRatio = footHeightRatio();
  addViewController(settingsViewController_);
  if (initPage != 0) settingsViewController_.setCurrentPage(initPage);
  menuBar_.overlaysView = &overlaysView_;
  menuBar_.setAppLogo(appLogo());
  menuBar_.productId = productId();
  ViewController::viewDidLoad();
  view().setBackgroundColor(kestroui::Theme::background);
  loadPresetStorage();
  view().addSubview(overlaysView_);
  view().addSubview(menuBar_);
  view().addSubview(enterValueOverlay_);
  view().addSubview(noticeView_);
  menuBar_.setReachableBesideModals(true);
  noticeView_.setReachableBesideModals(true);
  menuBar_.delegate = {this, *this};
  enterValueOverlay_.setHidden(true);
  enterValueOverlay_.delegate = {this, *this};
  if (auto* unit = audioUnit()) {
    if (unit->hasStore() && productId().empty()) platform::fatal("Must override this");
    connectViewWithAU();
  } else {
    overlaysView_.reloadPresetList();
  }
}

// Appearance

void KestroAUViewController::tellAudioUnitOfUI(bool visible) {
  platform::AudioUnit* const unit = visible ? audioUnit() : nullptr;
  if (shownUnit_ == unit) return;
  if (auto* before = shownUnit_.get()) before->hasUI(false);
  shownUnit_ = unit;
  if (unit) unit->hasUI(true);
}

void KestroAUViewController::viewDidAppear() {
  ViewController::viewDidAppear();
  tellAudioUnitOfUI(true);
  if (!displayLink_)
    displayLink_ = std::make_unique<foundation::DisplayLink>([this] { updateUI(); });
  checkTimer_ = foundation::Timer(checkInterval, foundation::Timer::Repeat::forever,
                                  [self = platform::Weak<KestroAUViewController>(this)] {
                                    if (!self) return;
                                    self->followHostFrame();
                                  });
}

void KestroAUViewController::viewDidDisappear() {
  ViewController::viewDidDisappear();
  letGo();
  for (const auto& [key, container] : controls_->controls())
    if (auto* choice = dynamic_cast<kestroui::DropDownListContainer*>(container.get()))
      choice->list().close();
  tellAudioUnitOfUI(false);
  displayLink_.reset();
  checkTimer_.invalidate();
}

void KestroAUViewController::followHostFrame() {
  const platform::Rect frame = parent() ? parent()->view().frame() : platform::Rect{};
  resizing_ = storedRect_ != frame;
  if (!resizing_ && displayLink_) displayLink_->setPaused(false);
  storedRect_ = frame;
  if (layoutWhileResizing) return;
  if (std::exchange(settingsViewController_.resizing, resizing_) && !resizing_)
    settingsViewController_.view().setNeedsLayout();
}

void KestroAUViewController::updateUI() {
  if (!connection_) return;
  // The live values belong to the audio unit whose controls these are.
  if (!connection_->audioUnit()) return forgetLiveValues();
  for (const auto& [key, container] : controls_->controls())
    if (container->hasModulation() && (container->isVisible() || container->isShown()))
      container->updateModulation();
}

void KestroAUViewController::forgetLiveValues() {
  connection_.reset();
  for (const auto& [key, container] : controls_->controls()) {
    container->watchNothing();
    if (auto* scope = dynamic_cast<kestroui::OscilloscopeContainer*>(container.get()))
      scope->setBuffers({});
    if (container->control()) container->control()->setModulated(false);
    container->updateModulation();
  }
}

void KestroAUViewController::updateVisibility() {
  for (const auto& [key, container] : controls_->controls())
    container->setHidden(!isControlShown(*key));
}

// Layout

void KestroAUViewController::viewWillLayoutSubviews() {
  ViewController::viewWillLayoutSubviews();
  if (displayLink_) displayLink_->setPaused(true);
}

void KestroAUViewController::viewDidLayoutSubviews() {
  ViewController::viewDidLayoutSubviews();
  const platform::Rect bounds = view().bounds();
  const double ratio = contentRatio();
  platform::Rect content;
  if (bounds.height < bounds.width * ratio) {
    content.width = bounds.height / ratio;
    content.height = bounds.height;
    content.x = (bounds.width - content.width) * 0.5;
  } else {
    content.width = bounds.width;
    content.height = bounds.width * ratio;
    content.y = (bounds.height - content.height) * 0.5;
  }

  const double menuHeight = content.height * OverlayStyle::menuBarShare;
  menuBar_.setFrame({content.x, content.y, content.width, menuHeight});
  mainContentFrame_ = {content.x, content.y + menuHeight, content.width,
                       content.height - menuHeight};
  settingsViewController_.view().setFrame(mainContentFrame_);
  overlaysView_.setFrame(content);
  noticeView_.setFrame(content);
  enterValueOverlay_.setFrame(content);
  labelScale_ = std::min(content.height / labelHeightUnit, maximumLabelScale);
  applyLabelScale();
}

void KestroAUViewController::applyLabelScale() {
  for (const auto& [key, container] : controls_->controls()) container->setLabelHRatio(labelScale_);
  if (!settingsViewController_.foot_stack) return;
  for (const auto& key : *settingsViewController_.foot_stack)
    if (const auto container = key ? (*controls_)[key] : nullptr)
      container->setLabelHRatio(labelScale_ * (1 - settingsViewController_.footHRatio));
}

// The rest of the editor

std::shared_ptr<kestroui::Container> KestroAUViewController::container(
    const std::string& key) const {
  return controls_->container(key);
}

void KestroAUViewController::setPresetName(const std::string& name) {
  menuBar_.setPresetName(name);
}

void KestroAUViewController::randomize() {
  if (auto* unit = audioUnit()) unit->randomize();
}

platform::Application* KestroAUViewController::application() {
  for (platform::Responder* responder = this; responder; responder = responder->nextResponder())
    if (auto* application = dynamic_cast<platform::Application*>(responder)) return application;
  return nullptr;
}

void KestroAUViewController::openURL(const std::string& url) {
  if (auto* program = application()) program->open(url);
}

bool KestroAUViewController::aboutOverlayCanRequestReview() {
  const auto* program = application();
  return program && program->canRequestReview();
}

void KestroAUViewController::aboutOverlayRequestReview() {
  if (auto* program = application()) program->requestReview();
}

bool KestroAUViewController::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::escape) return false;
  if (overlaysView_.closeUppermost()) return true;
  if (!midiMappingEnabled_) return false;
  setMidiMappingEnabled(false);
  return true;
}

platform::Presentation* KestroAUViewController::presentation() {
  auto* program = application();
  return program ? program->presentation() : nullptr;
}

void KestroAUViewController::addViewController(toolkit::ViewController& child) {
  addChild(child);
  view().addSubview(child.view());
}

void KestroAUViewController::removeViewController(toolkit::ViewController& child) {
  // First, so that willMoveToParent finds the view where it was.
  child.removeFromParent();
  child.view().removeFromSuperview();
}

}  // namespace orvane

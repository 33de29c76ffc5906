#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

#include "Orvane/DropHint.h"
#include "Orvane/PluginEntry.h"
#include "backends/juce/AccessibleEditor.h"
#include "backends/juce/DesktopPresentation.h"
#include "backends/juce/FontBook.h"
#include "backends/juce/JuceRunLoop.h"
#include "toolkit/Window.h"

namespace juce_backend {

/// Shows an editor in a JUCE component: the component is the host of the controller, gives it its
/// size and all input, and repaints what changed. Preset files that are dropped on it are imported,
/// where the editor offers that. The controller appears when the component comes on screen and
/// disappears when it leaves. Add it to any other component, or to the desktop as a
/// window of its own or inside a window of someone else's:
///
///     EditorComponent editor(entry, *audioUnit);
///     editor.setSize(1024, 768);
///     editor.addToDesktop(0, hostWindow);
///     editor.setVisible(true);
///
/// Message thread only; on Linux only after a look at DISPLAY.
class EditorComponent : public juce::Component,
                        public juce::FileDragAndDropTarget,
                        private platform::WindowHost,
                        private JuceRunLoop::FrameClient {
 public:
  using ControllerFactory = std::function<std::unique_ptr<toolkit::ViewController>()>;

  /// Calls `makeController` when the run loop that controllers need is there.
  explicit EditorComponent(const ControllerFactory& makeController);
  /// The plug-in's editor for `audioUnit`, at the plug-in's preferred size.
  EditorComponent(const orvane::PluginEntry& entry, platform::AudioUnit& audioUnit);
  ~EditorComponent() override;

  toolkit::ViewController& controller() { return *controller_; }
  toolkit::Window& window() { return window_; }
  DesktopPresentation& presentation() { return presentation_; }
  const orvane::DropHint& dropHint() const { return dropHint_; }
  /// Makes the menu of the right mouse button for the parameter whose control is under it, or for none,
  /// an empty text. Without it, or when the menu is empty, there is none.
  std::function<juce::PopupMenu(const std::string& key)> menu;

  /// What assistive technology finds in it; made when it is asked for first.
  AccessibleEditor& accessibleEditor();
  std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

  void paint(juce::Graphics& graphics) override;
  void resized() override;

  void mouseDown(const juce::MouseEvent& event) override;
  void mouseDrag(const juce::MouseEvent& event) override;
  void mouseUp(const juce::MouseEvent& event) override;
  void mouseMove(const juce::MouseEvent& event) override;
  void mouseEnter(const juce::MouseEvent& event) override;
  void mouseExit(const juce::MouseEvent& event) override;
  void mouseWheelMove(const juce::MouseEvent& event, const juce::MouseWheelDetails& wheel) override;
  bool keyPressed(const juce::KeyPress& key) override;

  bool isInterestedInFileDrag(const juce::StringArray& paths) override;
  void fileDragEnter(const juce::StringArray& paths, int x, int y) override;
  void fileDragExit(const juce::StringArray& paths) override;
  void filesDropped(const juce::StringArray& paths, int x, int y) override;

 private:
  class Program : public platform::Application {
   public:
    explicit Program(DesktopPresentation& presentation) : presentation_(presentation) {}
    bool open(const std::string& url) override;
    platform::Presentation* presentation() override { return &presentation_; }

   private:
    DesktopPresentation& presentation_;
  };
  class ShowingWatcher : public juce::ComponentMovementWatcher {
   public:
    explicit ShowingWatcher(EditorComponent& owner);
    void componentMovedOrResized(bool, bool) override {}
    void componentPeerChanged() override { owner_.updateShowing(); }
    void componentVisibilityChanged() override { owner_.updateShowing(); }
    using juce::ComponentMovementWatcher::componentMovedOrResized;
    using juce::ComponentMovementWatcher::componentVisibilityChanged;

   private:
    EditorComponent& owner_;
  };

  void frameWanted() override;
  platform::Application* application() override { return &program_; }
  double textWidth(std::string_view text, const platform::Font& font) override {
    return fonts_->textWidth(text, font);
  }
  std::string clipboardText() override;
  void setClipboardText(const std::string& text) override;
  double now() const override { return foundation::RunLoop::main().now(); }
  void displayFrame() override;
  void updateShowing();
  /// The parameter whose control is there, in points, or an empty text.
  std::string keyAt(platform::Point point) const;
  /// What of these files the editor would import.
  std::vector<std::string> importable(const juce::StringArray& paths);
  /// Makes the picture anew for this scale, with all that has to be shown.
  void renewPicture(double scale);
  void composite(juce::Rectangle<int> pixels);
  /// Paints a part of the picture, given in points.
  void copy(juce::Graphics& graphics, juce::Rectangle<int> part);

  // First in, last out: every part of an editor may have timers.
  juce::SharedResourcePointer<JuceRunLoop> runLoop_;
  /// Held for the canvases, which would open the font files anew for each repaint.
  juce::SharedResourcePointer<FontBook> fonts_;
  /// On menus and choosers inside the editor.
  juce::SharedResourcePointer<EditorLook> look_;
  toolkit::Window window_{*this};
  /// Plays the host's controller, whose child the editor's is.
  toolkit::ViewController host_;
  DesktopPresentation presentation_{*this, host_.view()};
  orvane::DropHint dropHint_;
  Program program_{presentation_};
  std::unique_ptr<toolkit::ViewController> controller_;
  bool hasAppeared_ = false;
  /// What is on screen, in device pixels: whatever the desktop uncovers is only copied.
  juce::Image picture_;
  double scale_ = 0;
  /// In points: what has been repainted since the last copy.
  juce::RectangleList<int> toCopy_;
  std::set<int> touches_;
  std::unique_ptr<AccessibleEditor> accessibleEditor_;
  ShowingWatcher showingWatcher_{*this};
};

}  // namespace juce_backend

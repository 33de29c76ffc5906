#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/WindowHost.h"
#include "toolkit/DamageList.h"
#include "toolkit/Recorder.h"
#include "toolkit/ViewController.h"

namespace toolkit {

/// The meeting place of a view tree and the backend that shows it: it runs the passes of a frame
/// and hands input to the tree. A backend owns it and its root controller. User-interface thread
/// only.
class Window : public platform::Responder {
 public:
  /// `host` outlives the window.
  explicit Window(platform::WindowHost& host);
  ~Window() override;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  /// The host's controller: the editor's controller is its child. Null takes the tree out.
  void setRootViewController(ViewController* controller);
  ViewController* rootViewController() const { return root_.get(); }
  /// The size of the root view in points; negative counts as 0.
  void setSize(const platform::Size& size);
  platform::Size size() const { return size_; }
  platform::Responder* nextResponder() const override;
  /// What Canvas::textWidth answers while views paint, in points.
  double textWidth(std::string_view text, const platform::Font& font) const {
    return host_.textWidth(text, font);
  }
  std::string clipboardText() const { return host_.clipboardText(); }
  void setClipboardText(const std::string& text) { host_.setClipboardText(text); }

  // Frames

  bool needsFrame() const { return needsFrame_; }
  /// Lays out, draws and records everything visible that asked, and returns what has to be
  /// composited, in root coordinates; empty when nothing changed.
  std::vector<platform::Rect> prepareFrame();
  /// Paints all that meets `area` from the recordings, on a canvas in root coordinates that the
  /// caller has clipped. Between two prepareFrame calls it may run any number of times
  /// and always paints the same.
  void composite(platform::Canvas& canvas, const platform::Rect& area);
  /// Recordings made (views painted) since the window was made, for tests and measurements.
  std::uint64_t paintedViews() const { return paintedViews_; }

  // Input; places are in root coordinates.

  /// `id` is distinct among the touches that are down.
  void touchBegan(int id, Touch::Kind kind, platform::Point location, int tapCount,
                  platform::Modifiers modifiers = platform::Modifiers::none);
  void touchMoved(int id, platform::Point location,
                  platform::Modifiers modifiers = platform::Modifiers::none);
  void touchEnded(int id, platform::Point location,
                  platform::Modifiers modifiers = platform::Modifiers::none);
  void cancelTouches();
  /// The mouse moves without a button; `hoverEnded` when it leaves the window. Where it rests, views
  /// that come and go below it are told with the frame that shows them.
  void hovered(platform::Point location);
  void hoverEnded();
  /// False when nobody used it.
  bool wheelTurned(const platform::WheelEvent& event) override;
  /// To the first responder and on along its chain; without one, to the controllers from the
  /// uppermost child to the root. Tab that nobody used moves
  /// the keyboard to the next control in tree order (with Shift the previous one). False when
  /// nobody used it: the host gets it back.
  bool keyPressed(const platform::KeyEvent& event) override;
  View* firstResponder() const { return firstResponder_.get(); }
  /// The modal view that was opened last of those that are shown, or null. The keyboard stays in it,
  /// and touches beside it are dropped.
  View* uppermostModal() const;
  /// What a press there would reach, or null: nothing behind a modal view.
  View* hitAt(platform::Point location) const;
  /// Whether some of a view is where nothing clips it away.
  static bool isInSight(const View& view);

 private:
  friend class View;
  friend class ModalScope;
  struct ActiveTouch {
    Touch touch;
    platform::Weak<View> view;
  };

  void wantFrame();
  void damage(const platform::Rect& area);
  /// The view, still linked, is about to leave the tree.
  void viewLeaves(View& view);
  /// The root view goes; its controller may be half destroyed.
  void rootViewLeaves();
  /// Takes touches, hover and keyboard from views that are not shown here any more and tells them.
  void releaseLost();
  /// The same with the next event or frame, for when nobody can be told now.
  void releaseLostLater();
  bool shows(const View& view) const;

  void layoutIfNeeded(View& view);
  void layoutPass(View& view);
  void displayPass(View& view);
  void record(View& view);
  void damagePass(View& view, platform::Point origin, const platform::Rect& clip);
  void placeAgain(View& view, platform::Point origin, const platform::Rect& clip);
  void compositeView(View& view, platform::Canvas& canvas, const platform::Rect& area);

  ActiveTouch* activeTouch(int id);
  void forgetTouch(int id);
  void setHoverChain(std::vector<platform::Weak<View>> chain);
  /// The tree below the resting mouse has changed.
  void refreshHover();
  bool giveKeyboard(View* view);
  /// The view at a place that may be touched there.
  void addModal(View& view);
  void removeModal(View& view);
  /// To the next (1) or previous (-1) view that can have it.
  bool moveKeyboard(int direction);

  platform::WindowHost& host_;
  platform::Weak<ViewController> root_;
  View* rootView_ = nullptr;
  platform::Size size_;

  Recorder recorder_;
  /// What has to be composited with the next frame.
  DamageList damage_;
  /// Counts frames; views remember in which one they were laid out and displayed.
  std::uint32_t frameNumber_ = 0;
  bool needsFrame_ = false;
  bool preparing_ = false;
  std::uint64_t paintedViews_ = 0;

  std::vector<ActiveTouch> touches_;
  std::vector<platform::Weak<View>> hoverChain_;
  /// Where the mouse rests, while it is over the window.
  std::optional<platform::Point> mouse_;
  platform::Weak<View> firstResponder_;
  /// In the order in which they were opened.
  std::vector<platform::Weak<View>> modals_;
};

}  // namespace toolkit

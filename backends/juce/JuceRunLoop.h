#pragma once

#include <juce_events/juce_events.h>

#include <functional>
#include <memory>
#include <vector>

#include "foundation/RunLoop.h"

namespace juce_backend {

/// The process's foundation::RunLoop, driven from JUCE's message loop, be that the stand-alone's own
/// or a host's. All editors of a process share one through a juce::SharedResourcePointer. Display
/// frames come about 60 times a second, and only while somebody wants them. Made, used and
/// destroyed on the message thread.
class JuceRunLoop : private foundation::RunLoop::Driver {
 public:
  /// Who paints in display frames.
  class FrameClient {
   public:
    virtual ~FrameClient() = default;
    /// A frame that was asked for: after the display links, on the message thread.
    virtual void displayFrame() = 0;
  };

  JuceRunLoop();
  ~JuceRunLoop() override;
  JuceRunLoop(const JuceRunLoop&) = delete;
  JuceRunLoop& operator=(const JuceRunLoop&) = delete;

  foundation::RunLoop& loop() { return loop_; }

  /// One call of `client.displayFrame` at the next display frame, however often it is asked for.
  void requestFrame(FrameClient& client);
  /// Takes the request back; a client that dies calls it.
  void cancelFrame(FrameClient& client);

 private:
  class CallbackTimer : public juce::Timer {
   public:
    explicit CallbackTimer(std::function<void()> action) : action_(std::move(action)) {}
    void timerCallback() override { action_(); }

   private:
    std::function<void()> action_;
  };

  double now() const override;
  void wake() override;
  void scheduleChanged() override;
  void runDue();
  void frame();
  void schedule();

  const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
  /// Becomes readable on wake.
  int wakeDescriptor_ = -1;
  CallbackTimer deadlineTimer_;
  CallbackTimer frameTimer_;
  std::vector<FrameClient*> waitingClients_;
  /// Those of the frame under way that have not been called yet; null when taken back.
  std::vector<FrameClient*> calledClients_;
  double lastFrame_ = 0;
  foundation::RunLoop loop_;
};

}  // namespace juce_backend

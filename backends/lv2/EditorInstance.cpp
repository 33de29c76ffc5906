#include "backends/lv2/EditorInstance.h"

#include <cmath>
#include <utility>

#include "Orvane/KestroAUViewController.h"
#include "backends/juce/AudioUnitEditor.h"
#include "backends/juce/MidiLearnMenu.h"
#include "backends/lv2/PresetTurtle.h"

namespace juce {
// Not declared in any header; JUCE's own formats declare it in the same way.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}  // namespace juce

namespace lv2_backend {
namespace {

/// Rounds of messages that one idle call may take: an editor that is always busy must not keep the
/// host from its own work.
constexpr int roundsPerIdle = 64;

/// Hosts may make and idle an editor on different threads, as long as it is one at a time.
void enter() { juce::MessageManager::getInstance()->setCurrentThreadAsMessageThread(); }

}  // namespace

EditorInstance::JuceSession::JuceSession() { enter(); }

EditorInstance::EditorInstance(const orvane::PluginEntry& entry, const EditorHost& host,
                               const Place& place)
    : hostWindow_(place.parent, [this](int width, int height) { resize(width, height); }),
      audioUnit_(entry.createAudioUnit()),
      ports_(audioUnit_, host),
      editor_(entry, audioUnit_),
      frame_(editor_, hostWindow_) {
  auto* const controller = dynamic_cast<orvane::KestroAUViewController*>(&editor_.controller());
  audioUnit_.midiLearn().setEditor(controller);
  if (const std::string folder = userPresetBundle(entry); controller && !folder.empty())
    presets_ = std::make_unique<orvane::HostPresets>(controller->presetLibrary(), folder,
                                                     userPresetForm(entry, audioUnit_));
  if (place.takesMidi)
    editor_.menu = [this](const std::string&) {
      return juce_backend::midiLearnMenu(audioUnit_.midiLearn());
    };
  frame_.addToDesktop(0, reinterpret_cast<void*>(place.parent));
  resize(static_cast<int>(std::lround(entry.preferredSize.width * place.scale)),
         static_cast<int>(std::lround(entry.preferredSize.height * place.scale)));
  frame_.setVisible(true);
  if (place.resize) {
    const double pixels = pixelsPerUnit();
    place.resize->ui_resize(place.resize->handle,
                            static_cast<int>(std::lround(frame_.getWidth() * pixels)),
                            static_cast<int>(std::lround(frame_.getHeight() * pixels)));
  }
}

EditorInstance::~EditorInstance() {
  enter();
  audioUnit_.midiLearn().setEditor(nullptr);
  frame_.removeFromDesktop();
}

LV2UI_Widget EditorInstance::widget() const {
  const juce::ComponentPeer* peer = frame_.getPeer();
  return peer ? peer->getNativeHandle() : nullptr;
}

double EditorInstance::pixelsPerUnit() const {
  const juce::ComponentPeer* peer = frame_.getPeer();
  return peer ? peer->getPlatformScaleFactor() * frame_.getDesktopScaleFactor() : 1;
}

void EditorInstance::resize(int width, int height) {
  if (width <= 0 || height <= 0) return;
  const double pixels = pixelsPerUnit();
  frame_.setSize(static_cast<int>(std::lround(width / pixels)),
                 static_cast<int>(std::lround(height / pixels)));
  minimumIsLost_ = true;
}

void EditorInstance::portEvent(std::uint32_t port, std::uint32_t size, std::uint32_t format,
                               const void* data) {
  enter();
  ports_.portEvent(port, size, format, data);
}

void EditorInstance::idle() {
  enter();
  ports_.announce();
  ports_.idle(juce::Time::getMillisecondCounterHiRes() / 1000);
  audioUnit_.midiLearn().poll(juce::Time::getMillisecondCounterHiRes() / 1000);
  hostWindow_.poll();
  for (int i = 0; i < roundsPerIdle; ++i)
    if (!juce::dispatchNextMessageOnSystemQueue(true)) break;
  if (std::exchange(minimumIsLost_, false)) {
    const double pixels = pixelsPerUnit();
    hostWindow_.setMinimumSize(
        reinterpret_cast<unsigned long>(widget()),
        static_cast<int>(juce_backend::AudioUnitEditor::minimumWidth * pixels),
        static_cast<int>(juce_backend::AudioUnitEditor::minimumHeight * pixels));
  }
}

}  // namespace lv2_backend

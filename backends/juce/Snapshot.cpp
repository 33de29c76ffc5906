#include "backends/juce/Snapshot.h"

#include <juce_graphics/juce_graphics.h>

#include <cmath>

#include "Orvane/KestroAUViewController.h"
#include "backends/juce/FontBook.h"
#include "backends/juce/JuceCanvas.h"
#include "backends/juce/JuceInput.h"
#include "backends/juce/PluginBundle.h"
#include "foundation/RunLoop.h"

namespace juce_backend {
namespace {

// Nothing comes from outside: whoever paints runs what is due.
class StillRunLoop : public foundation::RunLoop::Driver {
 public:
  double now() const override { return juce::Time::getMillisecondCounterHiRes() * 0.001; }
  void wake() override {}
  void scheduleChanged() override {}
};

class StillWindow : public platform::WindowHost {
 public:
  void frameWanted() override {}
  platform::Application* application() override { return nullptr; }
  double textWidth(std::string_view text, const platform::Font& font) override {
    return fonts_->textWidth(text, font);
  }
  double now() const override { return foundation::RunLoop::main().now(); }

 private:
  juce::SharedResourcePointer<FontBook> fonts_;
};

juce::File fileAt(const std::string& path) {
  return juce::File::getCurrentWorkingDirectory().getChildFile(toText(path));
}

juce::Image picture(toolkit::Window& window, double scale) {
  const platform::Size size = window.size();
  juce::Image image = makePicture(static_cast<int>(std::lround(size.width * scale)),
                                  static_cast<int>(std::lround(size.height * scale)));
  window.prepareFrame();
  JuceCanvas canvas(image, scale);
  window.composite(canvas, {0, 0, size.width, size.height});
  return image;
}

}  // namespace

bool writeSnapshot(toolkit::Window& window, double scale, const std::string& path,
                   std::string& error) {
  const juce::Image image = picture(window, scale);
  const juce::File file = fileAt(path);
  juce::FileOutputStream stream(file);
  if (stream.openedOk()) {
    // What was there may be longer.
    stream.setPosition(0);
    stream.truncate();
    if (juce::PNGImageFormat().writeImageToStream(image, stream)) {
      stream.flush();
      if (stream.getStatus().wasOk()) return true;
    }
  }
  error = path + ": cannot write the picture";
  const std::string reason = stream.getStatus().getErrorMessage().toStdString();
  if (!reason.empty()) error += ": " + reason;
  return false;
}

std::vector<std::string> writePages(const orvane::PluginEntry& entry, const platform::Size& size,
                                    double scale, const std::string& folder, std::string& error) {
  ensureMainBundle(entry);
  StillRunLoop driver;
  foundation::RunLoop loop(driver);
  StillWindow client;
  toolkit::Window window(client);
  toolkit::ViewController host;
  const std::unique_ptr<platform::AudioUnit> audioUnit = entry.createAudioUnit();
  const std::unique_ptr<orvane::KestroAUViewController> editor = entry.createViewController();
  editor->setAudioUnit(audioUnit.get());

  host.addChild(*editor);
  window.setRootViewController(&host);
  window.setSize(size);
  host.view().addSubview(editor->view());
  editor->view().setFrame({0, 0, size.width, size.height});
  host.appear();

  std::vector<std::string> paths;
  if (!fileAt(folder).createDirectory().wasOk()) {
    error = folder + ": cannot make the folder";
    return paths;
  }
  const int pages = static_cast<int>(editor->settingsViewController().pageViews().size());
  for (int page = 0; page < pages; ++page) {
    editor->settingsViewController().setCurrentPage(page);
    loop.runDue();
    const std::string path = folder + "/page-" + std::to_string(page + 1) + ".png";
    if (!writeSnapshot(window, scale, path, error)) break;
    paths.push_back(path);
  }
  host.disappear();
  window.setRootViewController(nullptr);
  return paths;
}

}  // namespace juce_backend

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "Orvane/PluginEntry.h"
#include "backends/lv2/BundleTurtle.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/RunLoop.h"

// Writes the files that describe a plug-in into its bundle. Linked with the plug-in and run by its
// build.

const orvane::PluginEntry& orvanePluginEntry();

namespace {

/// Editors ask for a loop; this one never turns.
class StillDriver : public foundation::RunLoop::Driver {
 public:
  double now() const override { return 0; }
  void wake() override {}
  void scheduleChanged() override {}
};

void write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw std::runtime_error(path.string() + " cannot be written");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 7) {
    std::fprintf(stderr,
                 "usage: %s BUNDLE PLUGIN_FILE LICENSE SOUND_LIBRARY EDITOR_LIBRARY CLASS\n",
                 count > 0 ? arguments[0] : "orvane_lv2_ttl");
    return 2;
  }
  try {
    const std::filesystem::path bundle = arguments[1];
    StillDriver driver;
    foundation::RunLoop loop(driver);
    lv2_backend::BundleFiles files;
    files.pluginFile = arguments[2];
    files.license = arguments[3];
    files.soundLibrary = arguments[4];
    files.editorLibrary = arguments[5];
    files.pluginClass = arguments[6];
    files.takesMidi = ORVANE_MIDI_INPUT != 0;
    lv2_backend::BundleTurtle turtle(orvanePluginEntry(), files);
    write(bundle / "manifest.ttl", turtle.manifest());
    write(bundle / files.pluginFile, turtle.plugin());
    write(bundle / "Info.plist",
          foundation::writeXmlPropertyList(orvanePluginEntry().infoDictionary()));
    const std::filesystem::path presets = bundle / lv2_backend::BundleTurtle::presetsFile;
    if (const std::string text = turtle.presets(); !text.empty()) {
      write(presets, text);
    } else {
      std::filesystem::remove(presets);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
    return 1;
  }
  return 0;
}

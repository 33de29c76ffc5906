#include "Orvane/HostPresets.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iterator>
#include <mutex>
#include <utility>

#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"

namespace orvane {

struct HostPresets::Work {
  std::mutex oneAtATime;
  std::atomic<unsigned> newest{0};
  HostPresetFolder folder;
};

HostPresets::HostPresets(PresetLibrary& library, std::string folder, HostPresetFolder::Form form)
    : library_(library),
      work_(new Work{{},
                     {},
                     HostPresetFolder(foundation::DefaultFileManager::current(), std::move(folder),
                                      std::move(form))}) {
  library_.addObserver({this, *this});
  update();
}

std::string HostPresets::homeFolder() {
  const char* const home = std::getenv("HOME");
  return home ? home : "";
}

void HostPresets::presetLibraryDidChange(Change change) {
  if (change == Change::presets) update();
}

void HostPresets::update() {
  // Before the files have been looked at there is nothing to say about them.
  if (!library_.isLoaded()) return;
  PresetLibrary::Presets users;
  std::copy_if(library_.all().begin(), library_.all().end(), std::back_inserter(users),
               [](const PresetLibrary::PresetPtr& preset) { return preset->isUserPreset; });
  if (users == shown_) return;
  shown_ = std::move(users);
  std::vector<HostPresetFolder::Source> sources;
  for (const PresetLibrary::PresetPtr& preset : *shown_)
    sources.push_back({preset->name, preset->uniqueName()});
  const unsigned number = ++work_->newest;
  foundation::DispatchQueue::globalAsync([work = work_, number, sources = std::move(sources)] {
    const std::lock_guard lock(work->oneAtATime);
    if (number != work->newest) return;
    if (const auto problem = work->folder.update(sources))
      foundation::printToConsole("Presets for hosts: " + *problem);
  });
}

}  // namespace orvane

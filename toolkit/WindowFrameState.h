#pragma once

#include <cstdint>

#include "toolkit/DamageList.h"
#include "toolkit/Recorder.h"
#include "toolkit/Window.h"

namespace toolkit {

/// What a window keeps from frame to frame.
struct Window::FrameState {
  explicit FrameState(platform::WindowHost& host)
      : recorder([&host](std::string_view text, const platform::Font& font) {
          return host.textWidth(text, font);
        }) {}

  Recorder recorder;
  /// What has to be composited with the next frame.
  DamageList damage;
  /// Counts frames; views remember in which one they were laid out and displayed.
  std::uint32_t number = 0;
  bool preparing = false;
};

}  // namespace toolkit

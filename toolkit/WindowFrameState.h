#pragma once

#include <cstdint>

#include "platform/Window.h"
#include "toolkit/DamageList.h"
#include "toolkit/Recorder.h"

namespace platform {

/// What a window keeps from frame to frame.
struct Window::FrameState {
  explicit FrameState(Client& client)
      : recorder([&client](std::string_view text, const Font& font) {
          return client.textWidth(text, font);
        }) {}

  toolkit::Recorder recorder;
  /// What has to be composited with the next frame.
  toolkit::DamageList damage;
  /// Counts frames; views remember in which one they were laid out and displayed.
  std::uint32_t number = 0;
  bool preparing = false;
};

}  // namespace platform

#pragma once

#include <algorithm>
#include <array>

namespace halden {

/// A length of time in beats, with the name by which musicians know it.
struct Division {
  const char* name;
  float beats;
};

inline constexpr std::array<Division, 12> divisions{{
    {"1/32", 0.125f},
    {"1/16T", 1.0f / 6},
    {"1/16", 0.25f},
    {"1/8T", 1.0f / 3},
    {"1/16D", 0.375f},
    {"1/8", 0.5f},
    {"1/4T", 2.0f / 3},
    {"1/8D", 0.75f},
    {"1/4", 1},
    {"1/4D", 1.5f},
    {"1/2", 2},
    {"1 bar", 4},
}};

inline float divisionBeats(int index) {
  return divisions[static_cast<std::size_t>(
                       std::clamp(index, 0, static_cast<int>(divisions.size()) - 1))]
      .beats;
}

/// At a tempo in beats a minute; one that cannot be counts for 120.
inline float divisionSeconds(int index, double tempo) {
  const float beat = 60 / (tempo > 1 && tempo < 10000 ? static_cast<float>(tempo) : 120.0f);
  return divisionBeats(index) * beat;
}

}  // namespace halden

#pragma once

#include <lv2/atom/atom.h>

#include <cstdint>
#include <vector>

#include "Quillon/RenderGuard.h"
#include "backends/lv2/Transport.h"
#include "backends/lv2/Urids.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// Renders the host's cycles in blocks that the audio unit can take: no longer than it was
/// promised, and cut where the transport changes, so that both MIDI and tempo hold from their
/// frame on. Everything but the constructor and activate is for the audio thread.
class BlockRenderer {
 public:
  /// MIDI messages that may wait for one block; more in the same frame are dropped.
  static constexpr std::size_t midiCapacity = 4096;

  BlockRenderer(platform::AudioUnit& audioUnit, const Urids& urids, double sampleRate,
                std::uint32_t maximumFrames);

  std::uint32_t maximumFrames() const { return maximumFrames_; }
  /// The host's buffers; they stay until they are set again.
  void setInput(std::size_t channel, const float* buffer) { inputs_[channel] = buffer; }
  /// Null while the host sends none.
  void setSideChain(std::size_t channel, const float* buffer) { sideChain_[channel] = buffer; }
  void setOutput(std::size_t channel, float* buffer) { outputs_[channel] = buffer; }
  /// From the next block on.
  void setBypassed(bool bypassed) { bypassed_ = bypassed; }
  /// After the audio unit has made ready to render; forgets waiting messages. Not on the audio thread.
  void activate();

  /// A cycle: begin, its events in their order, finish.
  void begin(std::uint32_t frames);
  void midi(std::int64_t frame, const std::uint8_t* bytes, std::uint32_t size);
  void position(std::int64_t frame, const LV2_Atom_Object& position);
  void finish();

 private:
  std::uint32_t clampToCycle(std::int64_t frame) const;
  void renderUpTo(std::uint32_t end);
  void renderBlock(std::uint32_t frames);

  quillon::RenderGuard guard_;
  Transport transport_;
  double sampleRate_;
  std::uint32_t maximumFrames_;
  std::vector<const float*> inputs_;
  std::vector<const float*> sideChain_;
  std::vector<float*> outputs_;
  bool bypassed_ = false;
  /// The same, from the current block on.
  std::vector<const float*> blockInputs_;
  std::vector<const float*> blockSideChain_;
  std::vector<float*> blockOutputs_;
  /// In the frames of the cycle.
  std::vector<platform::MidiEvent> waiting_;
  std::vector<platform::MidiEvent> blockMidi_;
  std::uint32_t frames_ = 0;
  /// Frames of the cycle that are rendered.
  std::uint32_t done_ = 0;
};

}  // namespace lv2_backend

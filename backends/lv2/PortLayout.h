#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AudioUnit.h"

namespace lv2_backend {

/// Hands out symbols: C identifiers that no two things of a plug-in share.
class SymbolSet {
 public:
  /// `text` with '_' for every character that a symbol cannot hold, and a number behind it when
  /// the symbol is taken.
  std::string add(std::string_view text);

 private:
  std::set<std::string> taken_;
};

/// A parameter and the port that stands for it.
struct ParameterPort {
  platform::AUParameter* parameter = nullptr;
  /// Sessions and presets store it; it follows from the parameter's key.
  std::string symbol;
  /// A meter: the sound sets it.
  bool isOutput = false;
};

/// Which port is what. The sound, the editor and the description in the bundle each compute it
/// from an audio unit of their own and come to the same result: audio inputs, the side chain, audio
/// outputs, the two ports of events, the latency, whether it is to be heard, then one port for each
/// parameter in the tree's order.
class PortLayout {
 public:
  /// Room for events in bytes that the host is asked for.
  static constexpr std::uint32_t eventBufferSize = 65536;

  /// `audioUnit` outlives the layout.
  explicit PortLayout(platform::AudioUnit& audioUnit);

  std::uint32_t firstInput() const { return 0; }
  std::uint32_t inputs() const { return inputs_; }
  std::uint32_t firstSideChain() const { return inputs_; }
  std::uint32_t sideChain() const { return sideChain_; }
  std::uint32_t firstOutput() const { return inputs_ + sideChain_; }
  std::uint32_t outputs() const { return outputs_; }
  /// MIDI, the transport and the editor's messages.
  std::uint32_t control() const { return firstOutput() + outputs_; }
  /// Messages for the editor.
  std::uint32_t notify() const { return control() + 1; }
  std::uint32_t latency() const { return control() + 2; }
  /// Off is bypass.
  std::uint32_t enabled() const { return control() + 3; }
  std::uint32_t firstParameter() const { return control() + 4; }
  std::uint32_t count() const {
    return firstParameter() + static_cast<std::uint32_t>(parameters_.size());
  }

  /// The symbols of the audio ports: "in_1", "side_1", "out_1".
  static std::string inputSymbol(std::uint32_t channel);
  static std::string sideChainSymbol(std::uint32_t channel);
  static std::string outputSymbol(std::uint32_t channel);
  const std::vector<ParameterPort>& parameters() const { return parameters_; }

 private:
  std::uint32_t inputs_;
  std::uint32_t sideChain_;
  std::uint32_t outputs_;
  std::vector<ParameterPort> parameters_;
};

}  // namespace lv2_backend

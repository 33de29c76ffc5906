#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Orvane/ParameterGroups.h"
#include "backends/lv2/PortLayout.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// Describes the ports of a plug-in, each as one blank node of its `lv2:port`.
class PortTurtle {
 public:
  /// All outlive it. `pluginUri` is what the addresses of groups begin with.
  PortTurtle(const platform::AudioUnit& audioUnit, const PortLayout& layout,
             const orvane::ParameterGroups& groups, std::string pluginUri, bool takesMidi = true);

  /// The addresses of the groups of audio channels; empty when there is no such group.
  std::string mainInput() const { return audioGroup(layout_.inputs(), "main_in"); }
  std::string sideChain() const { return audioGroup(layout_.sideChain(), "side_chain"); }
  std::string mainOutput() const { return audioGroup(layout_.outputs(), "main_out"); }

  /// The value of `lv2:port`: all ports, separated by commas.
  std::string ports() const;
  /// The statements about every group.
  std::string groups() const;

  /// What a preset or a host may store for a parameter.
  static float defaultValue(const platform::AudioUnit& audioUnit,
                            const platform::AUParameter& parameter);

 private:
  const std::string& symbolOf(const orvane::ParameterGroups::Group& group) const;
  std::string groupAddress(const orvane::ParameterGroups::Group& group) const;
  std::string audioGroup(std::uint32_t channels, const char* name) const;
  std::string audioPorts() const;
  std::string controlPort() const;
  std::string notifyPort() const;
  std::string latencyPort() const;
  std::string enabledPort() const;
  std::string parameterPort(std::uint32_t index, const ParameterPort& port) const;

  const platform::AudioUnit& audioUnit_;
  const PortLayout& layout_;
  const orvane::ParameterGroups& groups_;
  /// Of the groups, in their order.
  std::vector<std::string> symbols_;
  std::string pluginUri_;
  bool takesMidi_;
};

}  // namespace lv2_backend

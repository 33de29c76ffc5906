#include "backends/lv2/PortLayout.h"

namespace lv2_backend {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

bool isOutput(const platform::AUParameter& parameter) {
  namespace Flags = platform::AudioUnitParameterFlags;
  return (parameter.flags() & (Flags::readable | Flags::writable)) == Flags::readable;
}

}  // namespace

std::string SymbolSet::add(std::string_view text) {
  std::string symbol;
  if (text.empty() || isDigit(text[0])) symbol = "_";
  for (const char c : text) symbol += isLetter(c) || isDigit(c) ? c : '_';
  std::string unique = symbol;
  for (int number = 2; !taken_.insert(unique).second; ++number)
    unique = symbol + "_" + std::to_string(number);
  return unique;
}

PortLayout::PortLayout(platform::AudioUnit& audioUnit)
    : inputs_(static_cast<std::uint32_t>(audioUnit.inputChannels())),
      sideChain_(static_cast<std::uint32_t>(audioUnit.sideChainChannels())),
      outputs_(static_cast<std::uint32_t>(audioUnit.outputChannels())) {
  SymbolSet symbols;
  for (std::uint32_t i = 0; i < inputs_; ++i) symbols.add(inputSymbol(i));
  for (std::uint32_t i = 0; i < sideChain_; ++i) symbols.add(sideChainSymbol(i));
  for (std::uint32_t i = 0; i < outputs_; ++i) symbols.add(outputSymbol(i));
  for (const char* taken : {"control", "notify", "latency", "enabled"}) symbols.add(taken);
  for (platform::AUParameter* parameter : audioUnit.parameterTree().allParameters())
    parameters_.push_back({parameter, symbols.add(parameter->key()), isOutput(*parameter)});
}

std::string PortLayout::inputSymbol(std::uint32_t channel) {
  return "in_" + std::to_string(channel + 1);
}

std::string PortLayout::sideChainSymbol(std::uint32_t channel) {
  return "side_" + std::to_string(channel + 1);
}

std::string PortLayout::outputSymbol(std::uint32_t channel) {
  return "out_" + std::to_string(channel + 1);
}

}  // namespace lv2_backend

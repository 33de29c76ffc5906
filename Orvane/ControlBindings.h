#pragma once

#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "KestroUI/Container.h"
#include "Orvane/DSPParameters.h"
#include "Orvane/ParameterMapping.h"

namespace kestroui {
class DoubleFilterViewContainer;
}

namespace orvane {

/// Joins the parameters of an audio unit and the places where controls show them. A value goes out
/// only for what the user has moved, and comes back by the parameter's address to every place; the
/// container itself says whether it wants a position or the value. Owned by the controller, which
/// fills it while it makes its controls. User-interface thread only.
class ControlBindings : public DSPParameterObserver {
 public:
  /// Forgets everything; what is bound from now on belongs to `audioUnit`.
  void setAudioUnit(platform::AudioUnit* audioUnit);
  /// Binds each key of a container, in place of what it was bound to before. A key without a
  /// parameter stays free. The container is held weakly.
  void bind(kestroui::Container& container, const DSPParameters& parameters);

  /// What the key of a container at this place drives; null for a free one, and once the audio unit
  /// is gone.
  platform::AUParameter* parameter(const kestroui::Container& container, std::size_t index) const;
  /// The double filters, whose curve depends on several parameters at once, that show the parameter
  /// at `address`.
  std::vector<kestroui::DoubleFilterViewContainer*> doubleFilters(
      platform::AUParameterAddress address) const;
  /// The places of the keys whose values the user has moved: those that the container names, else
  /// those that are not what was shown there last.
  std::vector<std::size_t> moved(const kestroui::Container& container) const;
  /// Sets the parameter of a key to what its control shows; the control of a free key goes back to
  /// where it was. Whoever observes the parameter may
  /// destroy the container, or this.
  void write(const kestroui::Container& container, std::size_t index);
  /// Shows the value of the parameter in each of its places.
  void update(platform::AUParameter& parameter, const std::string& key) override;

 private:
  struct Binding {
    platform::Weak<kestroui::Container> container;
    std::size_t index = 0;
    /// The same container, when it is one.
    kestroui::DoubleFilterViewContainer* doubleFilter = nullptr;
    /// Null for a key without a parameter.
    platform::AUParameter* parameter = nullptr;
    ParameterMapping mapping;
    /// The value that was shown last, and what the control has made of it, or has sent since.
    float shown = std::numeric_limits<float>::quiet_NaN();
    float held = std::numeric_limits<float>::quiet_NaN();
  };

  /// Takes back what the user has moved.
  static void standStill(const Binding& place);
  Binding* find(const kestroui::Container& container, std::size_t index);
  const Binding* find(const kestroui::Container& container, std::size_t index) const {
    return const_cast<ControlBindings*>(this)->find(container, index);
  }

  platform::Weak<platform::AudioUnit> audioUnit_;
  /// In the order of the keys of each container.
  std::unordered_map<const kestroui::Container*, std::vector<Binding>> bindings_;
  std::unordered_map<platform::AUParameterAddress, std::vector<Binding*>> places_;
};

}  // namespace orvane

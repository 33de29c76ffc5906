#pragma once

#include <string>
#include <vector>

#include "KestroUI/ButtonGroups.h"
#include "KestroUI/Container.h"
#include "KestroUI/DropDownList.h"
#include "KestroUI/Switches.h"

// The kinds that choose: switches, buttons, and one or several of named values.

namespace kestroui {

/// A switch with its title. Its string values are the texts of its states.
class OnOffContainer : public Container {
 public:
  explicit OnOffContainer(std::vector<std::string> titles = {});

  OnOffButton& button() { return button_; }

  void setStringValues(const std::vector<std::string>& values) override;

 private:
  OnOffButton button_;
};

/// A button that is 1 while it is pressed. It shows its title itself.
class SimpleButtonContainer : public Container {
 public:
  SimpleButtonContainer();

  MomentaryButton& button() { return button_; }

  void setTitle(const std::string& title) override;

 private:
  MomentaryButton button_;
};

/// A recording switch with its title: red, whatever the colour of its section. Of a parameter with
/// two states the live value, where there is one, tells whether it runs already or is only armed;
/// one with three states (stopped, armed, running) says so itself.
class RecContainer : public Container {
 public:
  RecContainer();

  RecButton& button() { return button_; }

  /// It is red everywhere, unless it has a control colour of its own.
  void setSectionColor(platform::Color) override {}
  void setColors(const std::vector<platform::Color>&) override {}
  void setValueRange(float minimum, float maximum) override;
  /// The names of its states.
  void setStringValues(const std::vector<std::string>& values) override;
  void updateModulation() override;

 private:
  RecButton button_;
};

/// A group of buttons of which one is on, with its title. The value is raw.
class RadioContainer : public Container {
 public:
  /// `isWaveform` draws icons of waveforms instead of texts.
  explicit RadioContainer(bool isWaveform = false);

  RadioButtons& buttons() { return buttons_; }

  ValueForm valueForm(std::size_t) const override { return ValueForm::raw; }
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  RadioButtons buttons_;
};

/// A list that opens, with its title. The value is raw.
class DropDownListContainer : public Container {
 public:
  DropDownListContainer() { setControl(list_); }

  DropDownList& list() { return list_; }

  ValueForm valueForm(std::size_t) const override { return ValueForm::raw; }
  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;
  /// Closes the list when its page goes.
  void setIsVisible(bool visible) override;

 private:
  DropDownList list_;
};

/// A group of switches, each a bit of the one raw value.
class BitFlagsGroupContainer : public Container {
 public:
  explicit BitFlagsGroupContainer(const std::vector<std::string>& flags = {});

  /// The names of the flags, lowest bit first.
  void setFlags(const std::vector<std::string>& flags);
  ValueForm valueForm(std::size_t) const override { return ValueForm::raw; }
  /// Names the flags where setFlags has not.
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  BitFlagsGroup group_;
};

}  // namespace kestroui

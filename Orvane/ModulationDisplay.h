#pragma once

namespace kestroui {
class Container;
class KestroControl;
}  // namespace kestroui

namespace orvane {

/// One frame of the live display that knobs and sliders share: shows on `control` what the first
/// flag and the first live value of `container` say now. Reads them without locks.
void showModulation(const kestroui::Container& container, kestroui::KestroControl& control);

}  // namespace orvane

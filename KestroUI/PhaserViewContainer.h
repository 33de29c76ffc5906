#pragma once

#include "KestroUI/ValueStripContainer.h"

namespace kestroui {

/// The notches of a phaser.
class PhaserViewContainer : public ValueStripContainer {};

}  // namespace kestroui

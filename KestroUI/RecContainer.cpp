#include "KestroUI/RecContainer.h"

namespace kestroui {

RecContainer::RecContainer() { OnOffContainer::setControlColor(Theme::record); }

}  // namespace kestroui

#include <cstddef>

#include "fuzz/PresetFolderTarget.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::presetFolder({data, size});
  return 0;
}

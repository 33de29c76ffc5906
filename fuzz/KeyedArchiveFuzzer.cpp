#include <cstddef>

#include "fuzz/PropertyListTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::keyedArchive({data, size});
  return 0;
}

#include "fuzz/PropertyListTargets.h"

#include <string>
#include <vector>

#include "foundation/BinaryPropertyListWriter.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "platform/Fatal.h"

namespace fuzz {

using platform::PropertyList;

namespace {

void require(bool isTrue, const char* what) {
  if (!isTrue) platform::fatal(what);
}

/// By what is written: a NaN is not equal to itself.
bool areSame(const PropertyList& a, const PropertyList& b) {
  return foundation::writeKeyedArchive(a) == foundation::writeKeyedArchive(b);
}

std::optional<PropertyList> parse(std::span<const std::uint8_t> bytes) {
  std::string error;
  auto list = foundation::parsePropertyList(bytes, error);
  require(list.has_value() == error.empty(), "An error without a reason, or the other way round");
  require(error.find('\n') == error.npos, "An error of several lines");
  return list;
}

bool isBinary(std::span<const std::uint8_t> bytes) { return bytes.size() > 1 && bytes[0] == 'b'; }

}  // namespace

void xmlList(std::span<const std::uint8_t> bytes) {
  if (isBinary(bytes)) return;
  const auto list = parse(bytes);
  if (!list) return;
  const std::string once = foundation::writeXmlPropertyList(*list);
  const auto again = parse({reinterpret_cast<const std::uint8_t*>(once.data()), once.size()});
  require(again.has_value(), "What was written cannot be read");
  require(foundation::writeXmlPropertyList(*again) == once, "What was written reads differently");
}

void binaryList(std::span<const std::uint8_t> bytes) {
  const auto list = parse(bytes);
  if (!list || !isBinary(bytes)) return;
  const auto once = foundation::writeBinaryPropertyList(*list);
  const auto again = parse(once);
  require(again.has_value(), "What was written cannot be read");
  require(foundation::writeBinaryPropertyList(*again) == once,
          "What was written reads differently");
}

void keyedArchive(std::span<const std::uint8_t> bytes) {
  std::string error;
  const auto root = foundation::readKeyedArchive(bytes, error);
  require(root.has_value() || !error.empty(), "An error without a reason");
  if (!root) return;
  const auto again = foundation::readKeyedArchive(foundation::writeKeyedArchive(*root), error);
  require(again.has_value() && areSame(*root, *again), "What was written reads differently");
}

}  // namespace fuzz

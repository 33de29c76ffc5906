#include "foundation/KeyedArchive.h"

#include <bit>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "foundation/BinaryPropertyListWriter.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/UnicodeText.h"

namespace foundation {

using platform::PropertyList;

namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

constexpr const char* archiverName = "NSKeyedArchiver";
constexpr std::int64_t archiverVersion = 100000;
/// Stands first among the objects of every archive.
constexpr const char* nullObject = "$null";

/// Collections within collections; reading and freeing recurse.
constexpr std::size_t maxDepth = 256;
/// Roughly what one value takes in memory besides its text or data.
constexpr std::uint64_t nodeSize = 128;

/// Roughly the bytes that a list takes in memory.
std::uint64_t sizeOf(const PropertyList& list) {
  std::uint64_t size = nodeSize;
  if (const auto* text = list.as<std::string>()) size += text->size();
  if (const auto* data = list.as<PropertyList::Data>()) size += data->size();
  if (const auto* array = list.as<Array>())
    for (const PropertyList& item : *array) size += sizeOf(item);
  if (const auto* dictionary = list.as<Dictionary>())
    for (const auto& [key, item] : *dictionary) size += key.size() + sizeOf(item);
  return size;
}

/// What an archive of this size may unfold to: its objects may be shared, so that a few of them
/// can stand for a tree that no memory holds.
std::uint64_t maxUnfolded(std::uint64_t size) { return (std::uint64_t{1} << 20) + 2 * size; }

/// Goes from a problem deep in the archive to readKeyedArchive.
struct Damage : std::runtime_error {
  using runtime_error::runtime_error;
};

enum class Kind { dictionary, array, string, data, number, date, null };

std::optional<Kind> kindOfClass(std::string_view name) {
  static const std::map<std::string_view, Kind> kinds{
      {"NSDictionary", Kind::dictionary}, {"NSArray", Kind::array},   {"NSSet", Kind::array},
      {"NSOrderedSet", Kind::array},      {"NSString", Kind::string}, {"NSData", Kind::data},
      {"NSNumber", Kind::number},         {"NSDate", Kind::date},     {"NSNull", Kind::null},
  };
  const auto found = kinds.find(name);
  if (found != kinds.end()) return found->second;
  constexpr std::string_view mutableMark = "NSMutable";
  if (!name.starts_with(mutableMark)) return std::nullopt;
  return kindOfClass("NS" + std::string(name.substr(mutableMark.size())));
}

std::optional<std::uint64_t> referenceOf(const PropertyList& value) {
  const auto* dictionary = value.as<Dictionary>();
  if (!dictionary || dictionary->size() != 1) return std::nullopt;
  const PropertyList* entry = value.find("CF$UID");
  const auto* number = entry ? entry->as<std::int64_t>() : nullptr;
  return number && *number >= 0 ? std::optional(static_cast<std::uint64_t>(*number)) : std::nullopt;
}

class Reader {
 public:
  explicit Reader(const PropertyList& archive) : maxSpent_(maxUnfolded(sizeOf(archive))) {
    if (!isKeyedArchive(archive)) throw Damage("this is a property list, but no keyed archive");
    if (*archive.find("$archiver") != PropertyList(archiverName))
      throw Damage("the archive was written by an unknown archiver");
    const PropertyList* version = archive.find("$version");
    if (!version || version->number() != archiverVersion)
      throw Damage("the keyed archive has an unknown version");
    const PropertyList* objects = archive.find("$objects");
    objects_ = objects ? objects->as<Array>() : nullptr;
    if (!objects_) throw Damage("the keyed archive has no objects");
    isOpen_.resize(objects_->size());
  }

  PropertyList root(const PropertyList& archive) {
    const PropertyList* top = archive.find("$top");
    const auto* entries = top ? top->as<Dictionary>() : nullptr;
    if (!entries || entries->empty()) throw Damage("the keyed archive has no root");
    const auto root = entries->find("root");
    return value(root == entries->end() ? entries->begin()->second : root->second, 0);
  }

 private:
  void spend(std::size_t size) {
    spent_ += nodeSize + size;
    if (spent_ > maxSpent_) throw Damage("the keyed archive unfolds to more than can be read");
  }

  /// What stands in the place of an object: a reference, or the object itself.
  PropertyList value(const PropertyList& given, std::size_t depth) {
    const auto reference = referenceOf(given);
    if (!reference) return object(given, depth);
    if (*reference >= objects_->size())
      throw Damage("the keyed archive refers to an object that it does not have");
    const auto index = static_cast<std::size_t>(*reference);
    if (isOpen_[index]) throw Damage("the keyed archive has an object that contains itself");
    isOpen_[index] = true;
    PropertyList result = object((*objects_)[index], depth);
    isOpen_[index] = false;
    return result;
  }

  PropertyList object(const PropertyList& given, std::size_t depth) {
    if (depth > maxDepth) throw Damage("the keyed archive is nested too deeply");
    if (const auto* text = given.as<std::string>()) {
      spend(text->size());
      return *text == nullObject ? PropertyList() : given;
    }
    if (const auto* data = given.as<PropertyList::Data>()) spend(data->size());
    if (given.as<Array>()) throw Damage("the keyed archive has a list in the place of an object");
    if (!given.as<Dictionary>()) {
      spend(0);
      return given;
    }
    switch (kindOf(given)) {
      case Kind::dictionary:
        return dictionary(given, depth + 1);
      case Kind::array:
        return array(given, depth + 1);
      case Kind::string:
        return string(given, depth);
      case Kind::data:
        return member<PropertyList::Data>(given, "NS.data", depth);
      case Kind::date:
        return PropertyList::Date{number(given, "NS.time")};
      case Kind::number:
        return plainNumber(given);
      case Kind::null:
        break;
    }
    spend(0);
    return {};
  }

  /// The nearest class that is known, from the object's own to those that it is derived from.
  Kind kindOf(const PropertyList& given) const {
    const PropertyList* reference = given.find("$class");
    const auto index = reference ? referenceOf(*reference) : std::nullopt;
    if (!index || *index >= objects_->size())
      throw Damage("the keyed archive has an object without a class");
    const PropertyList& description = (*objects_)[static_cast<std::size_t>(*index)];
    const PropertyList* name = description.find("$classname");
    const auto* text = name ? name->as<std::string>() : nullptr;
    if (!text) throw Damage("the keyed archive has a class without a name");
    if (const auto kind = kindOfClass(*text)) return *kind;
    const PropertyList* classes = description.find("$classes");
    if (const auto* bases = classes ? classes->as<Array>() : nullptr)
      for (const PropertyList& base : *bases)
        if (const auto* baseName = base.as<std::string>())
          if (const auto kind = kindOfClass(*baseName)) return *kind;
    throw Damage("the keyed archive has an object of the unknown class '" + text->substr(0, 60) +
                 "'");
  }

  const Array& list(const PropertyList& given, const char* name) const {
    const PropertyList* entry = given.find(name);
    if (const auto* found = entry ? entry->as<Array>() : nullptr) return *found;
    throw Damage(std::string("the keyed archive has a collection without ") + name);
  }

  PropertyList array(const PropertyList& given, std::size_t depth) {
    spend(0);
    Array result;
    for (const PropertyList& item : list(given, "NS.objects")) result.push_back(value(item, depth));
    return result;
  }

  PropertyList dictionary(const PropertyList& given, std::size_t depth) {
    spend(0);
    const Array& keys = list(given, "NS.keys");
    const Array& values = list(given, "NS.objects");
    if (keys.size() != values.size())
      throw Damage("the keyed archive has a dictionary with more keys than values, or fewer");
    Dictionary result;
    for (std::size_t i = 0; i < keys.size(); ++i) {
      const PropertyList key = value(keys[i], depth);
      if (!key.as<std::string>()) throw Damage("the keyed archive has a key that is no text");
      result[*key.as<std::string>()] = value(values[i], depth);
    }
    return result;
  }

  /// The text or the bytes that an object of a class of its own has inside.
  template <class T>
  PropertyList member(const PropertyList& given, const char* name, std::size_t depth) {
    const PropertyList* entry = given.find(name);
    if (!entry) throw Damage(std::string("the keyed archive has an object without ") + name);
    // Even "$null", which stands for itself here.
    if (const auto* text = entry->as<T>()) {
      spend(text->size());
      return *text;
    }
    PropertyList result = value(*entry, depth + 1);
    if (!result.as<T>())
      throw Damage(std::string("the keyed archive has an object with another kind of ") + name);
    return result;
  }

  PropertyList string(const PropertyList& given, std::size_t depth) {
    if (!given.find("NS.bytes")) return member<std::string>(given, "NS.string", depth);
    const PropertyList bytes = member<PropertyList::Data>(given, "NS.bytes", depth);
    const auto& data = *bytes.as<PropertyList::Data>();
    return xmlText({reinterpret_cast<const char*>(data.data()), data.size()});
  }

  double number(const PropertyList& given, const char* name) {
    spend(0);
    const PropertyList* entry = given.find(name);
    if (entry && (entry->as<double>() || entry->as<std::int64_t>())) return entry->number();
    throw Damage(std::string("the keyed archive has an object without ") + name);
  }

  /// Numbers stand for themselves nearly always; of those that do not, one member holds the value.
  PropertyList plainNumber(const PropertyList& given) {
    spend(0);
    for (const char* name : {"NS.boolval", "NS.intval", "NS.dblval"})
      if (const PropertyList* entry = given.find(name))
        if (entry->as<bool>() || entry->as<std::int64_t>() || entry->as<double>()) return *entry;
    throw Damage("the keyed archive has a number without a value");
  }

  const std::uint64_t maxSpent_;
  const Array* objects_ = nullptr;
  /// Those that are being read, around the one that is read now.
  std::vector<bool> isOpen_;
  std::uint64_t spent_ = 0;
};

class Writer {
 public:
  Dictionary write(const PropertyList& root) {
    objects_.push_back(nullObject);
    const PropertyList rootReference = add(root);
    return {{"$archiver", archiverName},
            {"$version", archiverVersion},
            {"$top", Dictionary{{"root", rootReference}}},
            {"$objects", std::move(objects_)}};
  }

 private:
  static PropertyList reference(std::size_t index) {
    return Dictionary{{"CF$UID", static_cast<std::int64_t>(index)}};
  }

  std::size_t append(PropertyList object) {
    objects_.push_back(std::move(object));
    return objects_.size() - 1;
  }

  PropertyList classOf(const std::string& name) {
    const auto known = classes_.find(name);
    if (known != classes_.end()) return reference(known->second);
    Array bases{name};
    if (name == "NSMutableString") bases.push_back("NSString");
    bases.push_back("NSObject");
    const std::size_t index =
        append(Dictionary{{"$classname", name}, {"$classes", std::move(bases)}});
    classes_.emplace(name, index);
    return reference(index);
  }

  PropertyList add(const PropertyList& value) { return std::visit(*this, value.value()); }

  template <class T>
  PropertyList addShared(std::map<T, std::size_t>& known, const T& value) {
    const auto found = known.find(value);
    if (found != known.end()) return reference(found->second);
    const std::size_t index = append(value);
    known.emplace(value, index);
    return reference(index);
  }

 public:
  // For std::visit.

  PropertyList operator()(std::monostate) {
    if (!null_) {
      null_ = append({});
      objects_[*null_] = Dictionary{{"$class", classOf("NSNull")}};
    }
    return reference(*null_);
  }
  PropertyList operator()(bool value) { return addShared(booleans_, value); }
  PropertyList operator()(std::int64_t value) { return addShared(integers_, value); }
  PropertyList operator()(double value) {
    // By their bits: there are two zeros, and a NaN is not equal to itself.
    const auto [known, isNew] = reals_.emplace(std::bit_cast<std::uint64_t>(value), 0);
    if (isNew) known->second = append(value);
    return reference(known->second);
  }
  PropertyList operator()(const std::string& value) {
    if (value != nullObject) return addShared(texts_, value);
    const std::size_t index = append({});
    objects_[index] = Dictionary{{"$class", classOf("NSMutableString")}, {"NS.string", value}};
    return reference(index);
  }
  PropertyList operator()(const PropertyList::Data& value) { return reference(append(value)); }
  PropertyList operator()(const PropertyList::Date& value) {
    const std::size_t index = append({});
    objects_[index] = Dictionary{{"$class", classOf("NSDate")}, {"NS.time", value.seconds}};
    return reference(index);
  }
  PropertyList operator()(const Array& value) {
    const std::size_t index = append({});
    Array items;
    for (const PropertyList& item : value) items.push_back(add(item));
    objects_[index] = Dictionary{{"$class", classOf("NSArray")}, {"NS.objects", std::move(items)}};
    return reference(index);
  }
  PropertyList operator()(const Dictionary& value) {
    const std::size_t index = append({});
    Array keys, values;
    for (const auto& [key, item] : value) {
      keys.push_back((*this)(key));
      values.push_back(add(item));
    }
    objects_[index] = Dictionary{{"$class", classOf("NSDictionary")},
                                 {"NS.keys", std::move(keys)},
                                 {"NS.objects", std::move(values)}};
    return reference(index);
  }

 private:
  Array objects_;
  std::map<std::string, std::size_t> classes_, texts_;
  std::map<bool, std::size_t> booleans_;
  std::map<std::int64_t, std::size_t> integers_;
  std::map<std::uint64_t, std::size_t> reals_;
  std::optional<std::size_t> null_;
};

}  // namespace

std::optional<PropertyList> readKeyedArchive(std::span<const std::uint8_t> bytes,
                                             std::string& error) {
  const auto archive = parsePropertyList(bytes, error);
  return archive ? unarchive(*archive, error) : std::nullopt;
}

bool isKeyedArchive(const PropertyList& list) {
  const PropertyList* archiver = list.find("$archiver");
  return archiver && archiver->as<std::string>();
}

std::optional<PropertyList> unarchive(const PropertyList& archive, std::string& error) {
  try {
    return Reader(archive).root(archive);
  } catch (const Damage& damage) {
    error = damage.what();
    return std::nullopt;
  }
}

std::vector<std::uint8_t> writeKeyedArchive(const PropertyList& root) {
  return writeBinaryPropertyList(Writer().write(root));
}

}  // namespace foundation

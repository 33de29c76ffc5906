// Keyed archives: what is written reads back, the forms that other writers use are read, and
// nothing that bytes can hold does harm.

#include "foundation/KeyedArchive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "foundation/BinaryPropertyListWriter.h"
#include "foundation/PropertyListCoding.h"

namespace {

using platform::PropertyList;
using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;
using Data = PropertyList::Data;

Data bytesOf(const std::string& text) { return {text.begin(), text.end()}; }
PropertyList uid(int number) { return Dictionary{{"CF$UID", number}}; }

PropertyList archive(const Array& objects, const PropertyList& root = uid(1)) {
  return Dictionary{{"$archiver", "NSKeyedArchiver"},
                    {"$version", 100000},
                    {"$top", Dictionary{{"root", root}}},
                    {"$objects", objects}};
}
PropertyList theClass(const std::string& name, const Array& bases = {}) {
  return Dictionary{{"$classname", name}, {"$classes", bases}};
}
PropertyList object(int classNumber, Dictionary members) {
  members["$class"] = uid(classNumber);
  return members;
}

std::string errorOf(const PropertyList& list) {
  std::string error;
  EXPECT_FALSE(foundation::readKeyedArchive(foundation::writeBinaryPropertyList(list), error));
  EXPECT_EQ(error.find('\n'), error.npos);
  return error;
}

const PropertyList everything = Dictionary{
    {"true", true},
    {"false", false},
    {"zero", 0},
    {"negative", -5},
    {"most", std::numeric_limits<std::int64_t>::max()},
    {"least", std::numeric_limits<std::int64_t>::min()},
    {"reals", Array{0.1, 0.0, 1e300, -1e-300, 0.3, 0.1 + 0.2}},
    {"text", "W\xc3\xa4rme \xf0\x9f\x8e\xb9"},
    {"empty", ""},
    {"$null", "$null"},
    {"data", Data{0, 1, 254, 255}},
    {"date", PropertyList::Date{700000000.25}},
    {"null", {}},
    {"nested", Array{1, Array{}, Dictionary{{"a", Array{{}, {}}}}, Dictionary{}}},
    {"long", std::string(70000, 'x')},
};

TEST(KeyedArchiveTest, EveryKindOfValueReadsBackAsItWasWritten) {
  for (const PropertyList& root : {everything, PropertyList(), PropertyList("text"),
                                   PropertyList(Array{1, 2}), PropertyList(-0.0)}) {
    std::string error;
    const auto read = foundation::readKeyedArchive(foundation::writeKeyedArchive(root), error);
    ASSERT_TRUE(read) << error;
    EXPECT_EQ(*read, root);
  }
}

TEST(KeyedArchiveTest, AnArchiveHasTheKnownEntries) {
  std::string error;
  const auto list = foundation::parsePropertyList(
      foundation::writeKeyedArchive(Dictionary{{"Categories", Array{"bass"}}}), error);
  EXPECT_EQ(*list, archive({"$null",
                            object(6, {{"NS.keys", Array{uid(2)}}, {"NS.objects", Array{uid(3)}}}),
                            "Categories", object(5, {{"NS.objects", Array{uid(4)}}}), "bass",
                            theClass("NSArray", {"NSArray", "NSObject"}),
                            theClass("NSDictionary", {"NSDictionary", "NSObject"})}))
      << foundation::writeXmlPropertyList(*list);
  EXPECT_TRUE(foundation::isKeyedArchive(*list));
}

TEST(KeyedArchiveTest, BinaryListsReadBackWithTheirReferences) {
  // No nulls: the format of property lists has none.
  PropertyList list = everything;
  list.as<Dictionary>()->erase("null");
  (*list.as<Dictionary>())["nested"] = Array{uid(3), uid(70000), Dictionary{{"CF$UID", -1}}};
  std::string error;
  const auto read = foundation::parsePropertyList(foundation::writeBinaryPropertyList(list), error);
  ASSERT_TRUE(read) << error;
  EXPECT_EQ(*read, list);
  EXPECT_EQ(foundation::parsePropertyList(
                foundation::writeBinaryPropertyList(Array{1, {}, Dictionary{{"a", {}}}}), error),
            PropertyList(Array{1, Dictionary{}}));
}

TEST(KeyedArchiveTest, FormsOfOtherWritersAreRead) {
  const Array bases{"Own", "NSMutableDictionary", "NSDictionary", "NSObject"};
  const struct {
    const char* what;
    PropertyList list, read;
  } cases[] = {
      {"an array that is shared",
       archive({"$null", object(3, {{"NS.objects", Array{uid(2), uid(2)}}}),
                object(3, {{"NS.objects", Array{uid(0)}}}), theClass("NSMutableArray")}),
       Array{Array{{}}, Array{{}}}},
      {"a mutable string",
       archive({"$null", object(2, {{"NS.string", "text"}}), theClass("NSMutableString")}), "text"},
      {"a string of bytes",
       archive({"$null", object(2, {{"NS.bytes", bytesOf("a\xff")}}), theClass("NSString")}),
       "a\xef\xbf\xbd"},
      {"mutable data behind a reference",
       archive({"$null", object(3, {{"NS.data", uid(2)}}), Data{1, 2}, theClass("NSMutableData")}),
       Data{1, 2}},
      {"a class derived from a dictionary",
       archive({"$null", object(2, {{"NS.keys", Array{}}, {"NS.objects", Array{}}}),
                theClass("Own", bases)}),
       Dictionary{}},
      {"a set",
       archive({"$null", object(2, {{"NS.objects", Array{uid(3)}}}), theClass("NSSet"), 7}),
       Array{7}},
      {"a mutable set in an order",
       archive({"$null", object(2, {{"NS.objects", Array{uid(3)}}}),
                theClass("NSMutableOrderedSet"), 7}),
       Array{7}},
      {"an integer as an object",
       archive({"$null", object(2, {{"NS.intval", 3}}), theClass("NSNumber")}), 3},
      {"a number object", archive({"$null", object(2, {{"NS.dblval", 1.5}}), theClass("NSNumber")}),
       1.5},
      {"a truth as an object",
       archive({"$null", object(2, {{"NS.boolval", true}}), theClass("NSNumber")}), true},
      {"a null object", archive({"$null", object(2, {}), theClass("NSNull")}), {}},
      {"a date in whole seconds",
       archive({"$null", object(2, {{"NS.time", 5}}), theClass("NSDate")}), PropertyList::Date{5}},
      {"a root of another name",
       Dictionary{{"$archiver", "NSKeyedArchiver"},
                  {"$version", 100000},
                  {"$top", Dictionary{{"state", uid(1)}}},
                  {"$objects", Array{"$null", "text"}}},
       "text"},
  };
  for (const auto& [what, list, expected] : cases) {
    std::string error;
    const std::string xml = foundation::writeXmlPropertyList(list);
    for (const Data& bytes : {foundation::writeBinaryPropertyList(list), bytesOf(xml)}) {
      const auto read = foundation::readKeyedArchive(bytes, error);
      ASSERT_TRUE(read) << what << ": " << error;
      EXPECT_EQ(*read, expected) << what;
    }
  }
}

TEST(KeyedArchiveTest, BrokenArchivesAreExplained) {
  const PropertyList dictionaryClass = theClass("NSDictionary"), arrayClass = theClass("NSArray");
  const struct {
    PropertyList list;
    const char* error;
  } cases[] = {
      {Dictionary{}, "this is a property list, but no keyed archive"},
      {Array{}, "this is a property list, but no keyed archive"},
      {Dictionary{{"$archiver", "Other"}}, "the archive was written by an unknown archiver"},
      {Dictionary{{"$archiver", "NSKeyedArchiver"}, {"$version", 1}},
       "the keyed archive has an unknown version"},
      {Dictionary{{"$archiver", "NSKeyedArchiver"}, {"$version", 100000}},
       "the keyed archive has no objects"},
      {Dictionary{{"$archiver", "NSKeyedArchiver"}, {"$version", 100000}, {"$objects", Array{}}},
       "the keyed archive has no root"},
      {archive({"$null"}), "the keyed archive refers to an object that it does not have"},
      {archive({"$null", Array{}}), "the keyed archive has a list in the place of an object"},
      {archive({"$null", Dictionary{}}), "the keyed archive has an object without a class"},
      {archive({"$null", object(9, {})}), "the keyed archive has an object without a class"},
      {archive({"$null", object(0, {})}), "the keyed archive has a class without a name"},
      {archive({"$null", object(2, {}), theClass("NSWindow", {"NSObject"})}),
       "the keyed archive has an object of the unknown class 'NSWindow'"},
      {archive({"$null", object(2, {}), arrayClass}),
       "the keyed archive has a collection without NS.objects"},
      {archive({"$null", object(2, {{"NS.keys", Array{}}, {"NS.objects", Array{uid(0)}}}),
                dictionaryClass}),
       "the keyed archive has a dictionary with more keys than values, or fewer"},
      {archive({"$null", object(2, {{"NS.keys", Array{uid(3)}}, {"NS.objects", Array{uid(0)}}}),
                dictionaryClass, 5}),
       "the keyed archive has a key that is no text"},
      {archive({"$null", object(2, {{"NS.objects", Array{uid(1)}}}), arrayClass}),
       "the keyed archive has an object that contains itself"},
      {archive({"$null", object(2, {{"NS.string", uid(1)}}), theClass("NSString")}),
       "the keyed archive has an object that contains itself"},
      {archive({"$null", object(2, {{"NS.data", "text"}}), theClass("NSData")}),
       "the keyed archive has an object with another kind of NS.data"},
      {archive({"$null", object(2, {{"NS.time", "now"}}), theClass("NSDate")}),
       "the keyed archive has an object without NS.time"},
  };
  for (const auto& [list, error] : cases) EXPECT_EQ(errorOf(list), error);
  const Data good = foundation::writeKeyedArchive(everything);
  std::string error;
  for (std::size_t length = 0; length < good.size(); length += length < 200 ? 1 : 997)
    EXPECT_FALSE(foundation::readKeyedArchive(std::span(good).first(length), error)) << length;
}

TEST(KeyedArchiveTest, NestingAndUnfoldingAreBounded) {
  Array chain{"$null"}, texts{"$null"}, doubling{"$null"};
  constexpr int count = 5000;
  for (int i = 1; i < count; ++i) {
    chain.push_back(object(count, {{"NS.objects", Array{uid(i + 1)}}}));
    texts.push_back(object(count, {{"NS.string", uid(i + 1)}}));
    doubling.push_back(object(count, {{"NS.objects", Array{uid(i + 1), uid(i + 1)}}}));
  }
  chain.push_back(theClass("NSArray"));
  texts.push_back(theClass("NSString"));
  EXPECT_EQ(errorOf(archive(chain)), "the keyed archive is nested too deeply");
  EXPECT_EQ(errorOf(archive(texts)), "the keyed archive is nested too deeply");
  doubling.resize(60);
  for (PropertyList& each : doubling)
    if (each.find("$class")) (*each.as<Dictionary>())["$class"] = uid(61);
  doubling.push_back("end");
  doubling.push_back(theClass("NSArray"));
  EXPECT_EQ(errorOf(archive(doubling)), "the keyed archive unfolds to more than can be read");
  for (const PropertyList& shared :
       {PropertyList(std::string(100000, 'x')), PropertyList(Data(100000)),
        object(3, {{"NS.string", std::string(100000, 'x')}})}) {
    const PropertyList many = object(4, {{"NS.objects", Array(1000, uid(2))}});
    EXPECT_EQ(errorOf(archive({"$null", many, shared, theClass("NSString"), theClass("NSArray")})),
              "the keyed archive unfolds to more than can be read");
  }
}

}  // namespace

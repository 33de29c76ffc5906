// Property lists as files hold them: what is written reads back, both forms are read, and broken or
// hostile bytes get one line of explanation.

#include "foundation/PropertyListCoding.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace {

using foundation::parsePropertyList;
using foundation::writeXmlPropertyList;
using platform::PropertyList;

std::vector<std::uint8_t> bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

std::string xml(const std::string& body, const std::string& before = "") {
  return before + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body +
         "</plist>";
}

std::optional<PropertyList> parse(const std::string& text) {
  std::string error;
  return parsePropertyList(bytesOf(text), error);
}

std::string errorOf(const std::string& text) {
  std::string error;
  EXPECT_FALSE(parsePropertyList(bytesOf(text), error)) << text;
  EXPECT_EQ(error.find('\n'), error.npos);
  return error;
}

/// A binary property list of ready-made objects, each with a place in the table.
std::string binary(const std::vector<std::string>& objects) {
  std::string text = "bplist00", table;
  for (const std::string& object : objects) {
    table += static_cast<char>(text.size() >> 8);
    table += static_cast<char>(text.size());
    text += object;
  }
  const std::size_t tablePlace = text.size();
  text += table + std::string(6, '\0') + '\2' + '\2';
  const auto append = [&](std::uint64_t number) {
    for (int shift = 56; shift >= 0; shift -= 8) text += static_cast<char>(number >> shift);
  };
  append(objects.size());
  append(0);
  append(tablePlace);
  return text;
}

/// An array object of the given elements, by number.
std::string array(const std::vector<int>& elements) {
  std::string text(1, static_cast<char>(0xa0 + elements.size()));
  for (int element : elements) {
    text += static_cast<char>(element >> 8);
    text += static_cast<char>(element);
  }
  return text;
}

TEST(PropertyListCodingTest, EveryKindOfValueReadsBackAsItWasWritten) {
  const PropertyList list = PropertyList::Dictionary{
      {"true", true},
      {"false", false},
      {"zero", 0},
      {"negative", -5},
      {"most", std::numeric_limits<std::int64_t>::max()},
      {"least", std::numeric_limits<std::int64_t>::min()},
      {"real", 0.1},
      {"small", -1e-300},
      {"large", 1e300},
      {"float", static_cast<double>(0.1f)},
      {"text", "W\xc3\xa4rme <&> \"\xf0\x9f\x8e\xb9\"\n\ttwo"},
      {"empty", ""},
      {"data", PropertyList::Data{0, 1, 254, 255}},
      {"date", PropertyList::Date{700000000}},
      {"before", PropertyList::Date{-1000000000}},
      {"return", "a\r\nb\rc"},
      {"\xc3\xbc & key",
       PropertyList::Array{1, "two", PropertyList::Array{}, PropertyList::Dictionary{{"a", 1}}}},
  };
  const auto read = parse(writeXmlPropertyList(list));
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, list);
}

TEST(PropertyListCodingTest, NumbersHaveAPointWhateverTheLocaleOfTheHost) {
  const support::TemporaryFolder folder;
  const std::string command = "localedef -i ps_AF -f UTF-8 '" + (folder / "ps_AF.UTF-8") + "'";
  std::system((command + " >/dev/null 2>&1").c_str());
  ::setenv("LOCPATH", folder.path().c_str(), 1);
  const bool hasOtherPoint = std::setlocale(LC_NUMERIC, "ps_AF.UTF-8") != nullptr;
  const std::string text = writeXmlPropertyList(PropertyList::Array{0.5, 1234.25});
  const auto read = parse(xml("<array><real>0.5</real><real>1234.25</real></array>"));
  std::setlocale(LC_NUMERIC, "C");
  ::unsetenv("LOCPATH");
  if (!hasOtherPoint) GTEST_SKIP() << "there is no locale with another point here";
  EXPECT_NE(text.find("<real>1234.25</real>"), text.npos) << text;
  EXPECT_EQ(read, PropertyList(PropertyList::Array{0.5, 1234.25}));
}

TEST(PropertyListCodingTest, RealsOutsideTheNumbersSurvive) {
  const auto read = parse(writeXmlPropertyList(
      PropertyList::Array{std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(), std::nan("")}));
  ASSERT_TRUE(read);
  const auto& items = *read->as<PropertyList::Array>();
  EXPECT_EQ(items[0].number(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(items[1].number(), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(items[2].number()));
}

TEST(PropertyListCodingTest, WhatTheFormatCannotHoldIsLeftOutOrReplaced) {
  for (const double seconds : {std::nan(""), -1e300, 1e300}) {
    const auto date = parse(writeXmlPropertyList(PropertyList::Date{seconds}));
    ASSERT_TRUE(date->as<PropertyList::Date>());
    EXPECT_GT(std::abs(date->as<PropertyList::Date>()->seconds), 1e9) << "the last or the first";
    EXPECT_EQ(date->as<PropertyList::Date>()->seconds > 0, seconds > 0);
  }
  EXPECT_EQ(*parse(writeXmlPropertyList({})), PropertyList(PropertyList::Dictionary{}));
  EXPECT_EQ(*parse(writeXmlPropertyList(PropertyList::Array{1, {}, 2})),
            PropertyList(PropertyList::Array{1, 2}));
  EXPECT_EQ(*parse(writeXmlPropertyList(PropertyList::Dictionary{{"a", {}}, {"b", 1}})),
            PropertyList(PropertyList::Dictionary{{"b", 1}}));
  const std::string replacement = "\xef\xbf\xbd";
  const struct {
    std::string text, read;
  } cases[] = {
      {std::string("a\0b", 3), "a" + replacement + "b"},
      {"\x01", replacement},
      {"\xff", replacement},
      {"\xc3", replacement},
      {"\xc0\x80", replacement + replacement},
      {"\xed\xa0\x80", replacement + replacement + replacement},
      {"\xef\xbf\xbf", replacement},
      {"\xf4\x8f\xbf\xbd", "\xf4\x8f\xbf\xbd"},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(*parse(writeXmlPropertyList(text)), PropertyList(expected)) << text;
}

TEST(PropertyListCodingTest, XmlOfOtherWritersIsRead) {
  const auto many = [](const std::string& text) {
    std::string all;
    for (int i = 0; i < 1000; ++i) all += text;
    return all;
  };
  const struct {
    std::string text;
    PropertyList list;
  } cases[] = {
      {xml("<string>mark</string>", "\xef\xbb\xbf"), "mark"},
      {xml("<true/>", "\n"), true},
      {xml("<!-- <dict> --><integer> 12 </integer>"), 12},
      {xml("<string>a&amp;&#65;&#x20AC;<![CDATA[<x>]]></string>"), "a&A\xe2\x82\xac<x>"},
      {xml("<data>\n\tAAEC\n</data>"), PropertyList::Data{0, 1, 2}},
      {xml("<array>" + many("<true/>") + "</array>"), PropertyList::Array(1000, true)},
      {xml("<array>" + many("<string>a</string>") + "</array>"), PropertyList::Array(1000, "a")},
      {xml("<!--" + many("<array>") + "--><string><![CDATA[" + many("<a>") + "]]></string>"),
       many("<a>")},
      {xml("<dict><key>a</key><real>1.5</real></dict>"), PropertyList::Dictionary{{"a", 1.5}}},
      {xml("<dict><key>a</key><true/><key>a</key><real> +2 </real></dict>"),
       PropertyList::Dictionary{{"a", 2.0}}},
      {"<array><integer>-0x1F</integer><integer>+7</integer></array>", PropertyList::Array{-31, 7}},
      {xml("<array><real>1e400</real><real>-1e400</real><real>1E-400</real><real>1e-400</real></"
           "array>"),
       PropertyList::Array{HUGE_VAL, -HUGE_VAL, 0.0, 0.0}},
      {xml("<date>2001-01-01T00:00:01.5Z</date>"), PropertyList::Date{1.5}},
  };
  for (const auto& [text, list] : cases) {
    const auto read = parse(text);
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(*read, list) << text;
  }
}

TEST(PropertyListCodingTest, TheBinaryFormIsRead) {
  using namespace std::string_literals;
  const auto read = parse(binary({
      "\xd2\0\1\0\2\0\3\0\4"s,  // two keys, two values
      "\x51"
      "a"s,
      "\x51"
      "b"s,                         // the keys
      "\x23\x3f\xf8\0\0\0\0\0\0"s,  // 1.5
      array({5, 6, 7}),
      "\x63\x00\xe4\xd8\x3c\xdf\xb9"s,  // UTF-16
      "\x42\0\xff"s,                    // data
      "\x80\x09"s,                      // a reference of a keyed archive
  }));
  const std::pair<std::string, PropertyList> values[] = {
      {"\x08"s, false},
      {"\x09"s, true},
      {"\x10\xff"s, 255},
      {"\x11\x01\x02"s, 258},
      {"\x13\xff\xff\xff\xff\xff\xff\xff\xfe"s, -2},
      {"\x14"s + std::string(8, '\0') + "\0\0\0\0\0\0\1\2"s, 258},
      {"\x22\x3f\xc0\0\0"s, 1.5},
      {"\x33\x3f\xf8\0\0\0\0\0\0"s, PropertyList::Date{1.5}},
      {"\x5f\x10\x10"s + std::string(16, 'x'), std::string(16, 'x')},
      {"\xc0"s, PropertyList::Array{}},  // a set
      {"\x81\x01\0"s, PropertyList::Dictionary{{"CF$UID", 256}}},
  };
  for (const auto& [bytes, value] : values) EXPECT_EQ(parse(binary({bytes})), value) << bytes;
  ASSERT_TRUE(read);
  EXPECT_EQ(*read,
            PropertyList(PropertyList::Dictionary{
                {"a", 1.5},
                {"b", PropertyList::Array{"\xc3\xa4\xf0\x9f\x8e\xb9", PropertyList::Data{0, 255},
                                          PropertyList::Dictionary{{"CF$UID", 9}}}}}));
}

TEST(PropertyListCodingTest, BrokenBytesAreExplained) {
  EXPECT_EQ(errorOf(""), "the property list is empty");
  EXPECT_EQ(errorOf("hello"), "this is no property list, neither XML nor binary");
  EXPECT_EQ(errorOf("   \n"), "this is no property list, neither XML nor binary");
  const std::pair<std::string, const char*> damaged[] = {
      {xml("\n<dict><key>a</key>"), "is damaged (mismatched tag), in line 3"},
      {xml("<what/>"), "has an element that is no value, in line 2"},
      {xml("<dict><string>x</string></dict>"), "has a value without a key, in line 2"},
      {xml("<dict><key>a</key></dict>"), "has a key without a value, in line 2"},
      {xml("<dict><key>a</key><key>b</key></dict>"), "has two keys for one value, in line 2"},
      {xml("<array><key>a</key></array>"), "has a key outside a dictionary, in line 2"},
      {xml("<key>a</key>"), "has a key outside a dictionary, in line 2"},
      {xml("<array>1</array>"), "has text between its values, in line 2"},
      {xml("<string><true/></string>"), "has a value within a text, in line 2"},
      {xml("<plist/>"), "has a list within a list, in line 2"},
      {xml("<true/><true/>"), "has more than one value, in line 2"},
      {xml(""), "holds no value, in line 2"},
      {xml("<integer>1.5</integer>"), "has a value that cannot be read, in line 2"},
      {xml("<integer/>"), "has a value that cannot be read, in line 2"},
      {xml("<real>1,5</real>"), "has a value that cannot be read, in line 2"},
      {xml("<data>A*==</data>"), "has a value that cannot be read, in line 2"},
      {xml("<date>2023-02-30T00:00:00Z</date>"), "has a value that cannot be read, in line 2"},
      {xml("<string>&e;</string>", "<!DOCTYPE plist [<!ENTITY e 'e'>]>\n").substr(0, 40),
       "declares entities, in line 1"},
      {"<", "is damaged (unclosed token), in line 1"},
      {"<plist>", "is damaged (no element found), in line 1"},
  };
  for (const auto& [text, why] : damaged)
    EXPECT_EQ(errorOf(text), std::string("the XML property list ") + why) << text;
  EXPECT_EQ(errorOf("bplist00"), "the binary property list is cut short");
  const std::string good = binary({array({1}), "\x09"});
  for (std::size_t length = 6; length < good.size(); ++length) errorOf(good.substr(0, length));
  std::string tooMany = binary({array({7})});
  tooMany[tooMany.size() - 17] = 100;
  EXPECT_EQ(errorOf(tooMany), "the binary property list has a damaged table");
  std::string outside = binary({"\x09"});
  outside[9] = 0x7f;
  EXPECT_EQ(errorOf(outside), "the binary property list has a damaged table");
  EXPECT_EQ(errorOf(binary({"\x5f\x14" + std::string(16, '\1')})),
            "the binary property list has a damaged count");
  EXPECT_EQ(errorOf(binary({array({7})})),
            "the binary property list refers to a value that it does not have");
  EXPECT_EQ(errorOf(binary({std::string("\xd1\0\1\0\1", 5), "\x09"})),
            "the binary property list has a key that is no text");
  EXPECT_EQ(errorOf(binary({"\x70"})), "the binary property list has a value of an unknown kind");
  EXPECT_EQ(errorOf(binary({"\x5f\x13\xff\xff\xff\xff\xff\xff\xff\xff"})),
            "the binary property list is cut short");
}

TEST(PropertyListCodingTest, NestingAndUnfoldingAreBounded) {
  const auto nested = [](std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) text += "<array>";
    for (std::size_t i = 0; i < depth; ++i) text += "</array>";
    return xml(text);
  };
  EXPECT_TRUE(parse(nested(200)));
  EXPECT_EQ(errorOf(nested(1000000)), "the XML property list is nested too deeply, in line 2");
  // Ways to hide the levels from whoever counts them by looking for brackets.
  std::string hidden;
  for (int i = 0; i < 20000; ++i) hidden += "<array a=\"/>\">";
  EXPECT_EQ(errorOf(xml(hidden)), "the XML property list is nested too deeply, in line 2");
  const std::string comment = "<!DOCTYPE plist [ <!ELEMENT a ANY> <!-- ]> -->]>";
  EXPECT_EQ(errorOf(comment + nested(20000).substr(39)),
            "the XML property list is nested too deeply, in line 1");

  const auto many = [](const std::string& text, std::size_t length) {
    std::string all;
    while (all.size() < length) all += text;
    return all;
  };
  EXPECT_EQ(errorOf(xml("<array>" + many("<true/>", 1 << 20) + "</array>")),
            "the XML property list unfolds to more than can be read, in line 2");
  const auto text = parse(xml("<string>" + many("&amp;", 10'000'000) + "</string>"));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->as<std::string>()->size(), 2'000'000u);
  const auto numbers =
      parse(xml("<array>" + many("<integer>1</integer>\n\t", 2'000'000) + "</array>"));
  ASSERT_TRUE(numbers) << "as other writers indent them";

  std::vector<std::string> chain;
  for (int i = 0; i < 5000; ++i) chain.push_back(array({i + 1}));
  chain.push_back("\x09");
  EXPECT_EQ(errorOf(binary(chain)), "the binary property list is nested too deeply");

  std::vector<std::string> doubling;
  for (int i = 0; i < 64; ++i) doubling.push_back(array({i + 1, i + 1}));
  doubling.push_back("\x09");
  EXPECT_EQ(errorOf(binary(doubling)), "the binary property list unfolds to more than can be read");

  EXPECT_EQ(errorOf(binary({array({1}), array({0})})),
            "the binary property list is nested too deeply");
}

}  // namespace

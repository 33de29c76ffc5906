// A built bundle as a host reads it.

#include <gmock/gmock.h>
#include <lilv/lilv.h>

#include <cstdlib>
#include <limits>
#include <map>
#include <set>
#include <stdexcept>

#include <utility>

#include <lv2/presets/presets.h>

#include "Quillon/FullState.h"
#include "backends/lv2/BundleTurtle.h"
#include "backends/lv2/PortLayout.h"
#include "backends/lv2/PresetTurtle.h"
#include "backends/lv2/Turtle.h"
#include "backends/lv2/Uris.h"
#include "foundation/LocalFileManager.h"
#include "foundation/PropertyListCoding.h"
#include "tests/support/GivenUnit.h"
#include "tests/support/Lv2Host.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/OddPlugin.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using support::OddAudioUnit;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class Lv2BundleTest : public testing::Test {
 protected:
  Lv2BundleTest() {
    LilvNode* bundle = lilv_new_file_uri(world, nullptr, ORVANE_ODD_BUNDLE "/");
    lilv_world_load_bundle(world, bundle);
    lilv_node_free(bundle);
    LilvNode* uri = node(lv2_backend::pluginUri(support::oddPluginEntry()));
    plugin = lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world), uri);
    if (!plugin) throw std::runtime_error("There is no plug-in in " ORVANE_ODD_BUNDLE);
  }
  ~Lv2BundleTest() override {
    for (LilvNode* made : nodes) lilv_node_free(made);
    lilv_world_free(world);
  }

  LilvNode* node(const std::string& uri) {
    nodes.push_back(lilv_new_uri(world, uri.c_str()));
    return nodes.back();
  }
  LilvNode* lv2(const std::string& name) { return node(LV2_CORE_PREFIX + name); }
  static std::string text(const LilvNode* value) { return value ? lilv_node_as_string(value) : ""; }
  const LilvPort* port(const std::string& symbol) {
    LilvNode* name = lilv_new_string(world, symbol.c_str());
    const LilvPort* found = lilv_plugin_get_port_by_symbol(plugin, name);
    lilv_node_free(name);
    if (!found) throw std::runtime_error("There is no port " + symbol);
    return found;
  }
  std::string value(const std::string& symbol, const std::string& predicate) {
    LilvNode* found = lilv_port_get(plugin, port(symbol), node(predicate));
    const std::string result = text(found);
    lilv_node_free(found);
    return result;
  }
  std::string groupName(const std::string& symbol) {
    const std::string group = value(symbol, "http://lv2plug.in/ns/ext/port-groups#group");
    if (group.empty()) return group;
    LilvNode* name = lilv_world_get(world, node(group), lv2("name"), nullptr);
    const std::string result = text(name);
    lilv_node_free(name);
    return result;
  }
  bool hasProperty(const std::string& symbol, const std::string& property) {
    return lilv_port_has_property(plugin, port(symbol), node(property));
  }

  /// All that hosts list, as "bank/name", and the values of the ports by name.
  std::pair<std::set<std::string>, std::map<std::string, std::map<std::string, float>>> presets() {
    LilvNodes* all = lilv_plugin_get_related(plugin, node(LV2_PRESETS__Preset));
    std::set<std::string> found;
    std::map<std::string, std::map<std::string, float>> values;
    LILV_FOREACH(nodes, i, all) {
      const LilvNode* preset = lilv_nodes_get(all, i);
      lilv_world_load_resource(world, preset);
      LilvNode* bank =
          lilv_world_get(world, preset, node("http://lv2plug.in/ns/ext/presets#bank"), nullptr);
      LilvNode* bankName =
          bank ? lilv_world_get(world, bank, node(LILV_NS_RDFS "label"), nullptr) : nullptr;
      LilvState* state = lilv_state_new_from_world(world, features.map(), preset);
      const std::string name = lilv_state_get_label(state);
      found.insert(text(bankName) + "/" + name);
      lilv_state_emit_port_values(
          state,
          [](const char* symbol, void* data, const void* value, std::uint32_t, std::uint32_t) {
            (*static_cast<std::map<std::string, float>*>(data))[symbol] =
                *static_cast<const float*>(value);
          },
          &values[name]);
      LilvNode* stored = lilv_world_get(world, preset, node(LV2_STATE__state), nullptr);
      LilvNode* ours = lilv_world_get(world, stored, node(lv2_backend::uri::state), nullptr);
      std::string error;
      const std::string list = text(ours);
      const auto told = foundation::parsePropertyList(
          {reinterpret_cast<const std::uint8_t*>(list.data()), list.size()}, error);
      const auto* shown = told ? told->find("presetName") : nullptr;
      EXPECT_EQ(shown ? *shown->as<std::string>() : error, name) << "what an editor shows";
      lilv_node_free(ours);
      lilv_node_free(stored);
      lilv_state_free(state);
      lilv_node_free(bank);
      lilv_node_free(bankName);
    }
    lilv_nodes_free(all);
    return {found, values};
  }

  LilvWorld* world = lilv_world_new();
  const LilvPlugin* plugin = nullptr;
  std::vector<LilvNode*> nodes;
  support::Lv2Features features;
};

TEST_F(Lv2BundleTest, NamesThePlugin) {
  EXPECT_TRUE(lilv_plugin_verify(plugin));
  LilvNode* name = lilv_plugin_get_name(plugin);
  EXPECT_EQ(text(name), "Odd \"Plug\"\\");
  lilv_node_free(name);
  LilvNode* author = lilv_plugin_get_author_name(plugin);
  EXPECT_EQ(text(author), "A & B <c>");
  lilv_node_free(author);
  const auto is = [this](const LilvNode* type) {
    return lilv_world_ask(world, lilv_plugin_get_uri(plugin), node(LILV_NS_RDF "type"), type);
  };
  EXPECT_TRUE(is(lv2("InstrumentPlugin")));
  EXPECT_FALSE(is(node(LILV_NS_DOAP "Project"))) << "where hosts would list it";
  EXPECT_TRUE(lilv_plugin_has_latency(plugin));
}

TEST_F(Lv2BundleTest, HasAControlPortForEveryParameterWithItsRange) {
  OddAudioUnit unit;
  const lv2_backend::PortLayout layout(unit);
  ASSERT_EQ(lilv_plugin_get_num_ports(plugin), layout.count());
  std::vector<float> minima(layout.count()), maxima(layout.count()), defaults(layout.count());
  lilv_plugin_get_port_ranges_float(plugin, minima.data(), maxima.data(), defaults.data());
  for (const auto& parameterPort : layout.parameters()) {
    const LilvPort* described = port(parameterPort.symbol);
    const auto index = lilv_port_get_index(plugin, described);
    const platform::AUParameter& parameter = *parameterPort.parameter;
    EXPECT_TRUE(lilv_port_is_a(plugin, described, lv2("ControlPort")));
    EXPECT_TRUE(lilv_port_is_a(plugin, described,
                               lv2(parameterPort.isOutput ? "OutputPort" : "InputPort")));
    EXPECT_EQ(minima[index], parameter.minValue()) << parameterPort.symbol;
    EXPECT_EQ(maxima[index], parameter.maxValue()) << parameterPort.symbol;
    EXPECT_EQ(defaults[index], unit.defaultValueForKey(parameter.key())) << parameterPort.symbol;
    LilvNode* name = lilv_port_get_name(plugin, described);
    EXPECT_EQ(text(name),
              parameter.displayName().empty() ? parameter.key() : parameter.displayName());
    lilv_node_free(name);
  }
}

TEST_F(Lv2BundleTest, SaysWhatEachParameterMeasures) {
  const std::string unit = "http://lv2plug.in/ns/extensions/units#unit";
  for (const auto& [symbol, name] : std::map<std::string, std::string>{{"level", ""},
                                                                       {"cutoff", "hz"},
                                                                       {"_1semi", "semitone12TET"},
                                                                       {"twin_a", "ms"},
                                                                       {"twin_a_2", "s"}})
    EXPECT_EQ(value(symbol, unit),
              name.empty() ? "" : "http://lv2plug.in/ns/extensions/units#" + name);

  const std::string logarithmic = "http://lv2plug.in/ns/ext/port-props#logarithmic";
  EXPECT_TRUE(hasProperty("cutoff", logarithmic));
  EXPECT_FALSE(hasProperty("level", logarithmic));
  EXPECT_TRUE(hasProperty("sync", LV2_CORE__toggled));
  EXPECT_TRUE(hasProperty("wave_form", LV2_CORE__enumeration));
  EXPECT_TRUE(hasProperty("wave_form", LV2_CORE__integer));
}

TEST_F(Lv2BundleTest, NamesTheValuesOfChoices) {
  LilvScalePoints* points = lilv_port_get_scale_points(plugin, port("wave_form"));
  std::map<float, std::string> labels;
  LILV_FOREACH(scale_points, i, points) {
    const LilvScalePoint* point = lilv_scale_points_get(points, i);
    labels[lilv_node_as_float(lilv_scale_point_get_value(point))] =
        text(lilv_scale_point_get_label(point));
  }
  lilv_scale_points_free(points);
  EXPECT_EQ(labels, (std::map<float, std::string>{
                        {0, "S\u00e4ge"}, {1, "Sq\"uare"}, {2, "Same"}, {3, "Same (2)"}}));
}

TEST_F(Lv2BundleTest, GroupsPortsByTheDesignsSections) {
  for (const auto& [symbol, name] : std::map<std::string, std::string>{{"level", "TONE"},
                                                                       {"cutoff", "ONE TONE"},
                                                                       {"sync", "ONE TONE"},
                                                                       {"_1semi", "TWO TONE"},
                                                                       {"twin_a", "TWO TONE"},
                                                                       {"wave_form", "TWO"},
                                                                       {"twin_a_2", ""},
                                                                       {"out_1", "Audio Out"},
                                                                       {"out_2", "Audio Out"}})
    EXPECT_EQ(groupName(symbol), name) << symbol;
}

TEST_F(Lv2BundleTest, HasTheFactoryPresetsInTheirBanks) {
  auto [found, values] = presets();
  EXPECT_THAT(found, UnorderedElementsAre("Bank & Co/First \u201cquoted\u201d", "/No bank"));
  EXPECT_EQ(values["No bank"]["cutoff"], 100);
  EXPECT_EQ(values["No bank"]["level"], 0.25f);
  EXPECT_EQ(values["First \u201cquoted\u201d"]["wave_form"], 2);
  EXPECT_EQ(values["No bank"].count("maxBlock"), 0u) << "a meter";
}

TEST_F(Lv2BundleTest, HostsFindTheUsersPresetsBesideThem) {
  const support::TemporaryFolder folder;
  foundation::LocalFileManager files("", foundation::LocalFileManager::Groups::oneForAll, nullptr,
                                     folder / "tmp/");
  OddAudioUnit unit;
  unit.setParameter("cutoff", 4321);
  const auto stored = quillon::unfolded(unit.fullState());
  std::vector<orvane::HostPresetFolder::Source> sources;
  for (const char* name : {"My \"pad\" % <1>", "manifest"})
    sources.push_back({name, folder.write(std::string(name) + ".preset",
                                          foundation::writeXmlPropertyList(stored))});
  orvane::HostPresetFolder bundle(files, folder / "user presets.lv2",
                                  lv2_backend::userPresetForm(support::oddPluginEntry(), unit));
  ASSERT_EQ(bundle.update(sources), std::nullopt);
  LilvNode* place = lilv_new_file_uri(world, nullptr, (folder / "user presets.lv2/").c_str());
  lilv_world_load_bundle(world, place);
  lilv_node_free(place);

  auto [found, values] = presets();
  EXPECT_THAT(found, testing::IsSupersetOf({"USER/My \"pad\" % <1>", "USER/manifest"}));
  EXPECT_EQ(found.size(), 4u);
  EXPECT_EQ(values["manifest"]["cutoff"], 4321);
  EXPECT_EQ(values["manifest"]["level"], 0.25f);
}

TEST_F(Lv2BundleTest, HoldsALibraryThatSounds) {
  support::Lv2Features hostFeatures(32);
  LilvInstance* made = lilv_plugin_instantiate(plugin, 48000, hostFeatures.list());
  ASSERT_NE(made, nullptr);
  {
    // The same host as in the other tests, around the loaded library's functions.
    support::Lv2Instance instance(*lilv_instance_get_descriptor(made), hostFeatures,
                                  lilv_plugin_get_num_ports(plugin));
    instance.activate();
    instance.controls[lilv_port_get_index(plugin, port("enabled"))] = 1;
    instance.controls[lilv_port_get_index(plugin, port("level"))] = 0.5f;
    instance.input.midi(3, {0x90, 60, 9});
    instance.run(5);
    EXPECT_THAT(instance.left, ElementsAre(0.5f, 0.5f, 0.5f, 10.5f, 0.5f));
  }
  lilv_instance_free(made);
}

TEST(Lv2Turtle, DescribesPluginsOfAnyChannels) {
  struct Case {
    support::GivenUnit::Channels channels;
    std::vector<std::string> said, unsaid;
    bool takesMidi = false;
    std::string pluginClass{};
  };
  const support::ManualLoop loop;
  for (const auto& [channels, said, unsaid, takesMidi, pluginClass] : std::vector<Case>{
           {{1, 1, false},
            {"a lv2:Plugin ;", "pg:MonoGroup , pg:InputGroup", "lv2:name \"Audio In\" ;"},
            {"midi:MidiEvent", "pg:left"}},
           {{2, 2, false, 2},
            {"pg:StereoGroup , pg:InputGroup ;\n\tpg:sideChainOf <",
             "lv2:portProperty lv2:isSideChain , lv2:connectionOptional", "\"side_2\"",
             "lv2:designation lv2:enabled"},
            {}},
           {{2, 2, true}, {"a lv2:DelayPlugin , lv2:Plugin ;"}, {}, true, "DelayPlugin"},
           {{1, 1, false}, {"a lv2:Plugin ;", "midi:MidiEvent"}, {"InstrumentPlugin"}, true},
           {{2, 2, true},
            {"a lv2:Plugin ;", "time:Position , midi:MidiEvent", "pg:StereoGroup",
             "\"Audio In Right\""},
            {"InstrumentPlugin"}},
           {{0, 0, true}, {"a lv2:MIDIPlugin , lv2:Plugin"}, {"pg:MonoGroup"}},
           {{0, 4, true},
            {"a lv2:InstrumentPlugin", "\"Audio Out 1\"", "\"Audio Out 4\""},
            {"\"Audio Out 5\"", "pg:mainOutput", "\"in_1\""}}}) {
    const orvane::PluginEntry entry =
        support::entryOf([&made = channels] { return std::make_unique<support::GivenUnit>(made); });
    lv2_backend::BundleTurtle bundle(entry, {"a.so", "", "plugin.ttl", "", takesMidi, pluginClass});
    const std::string text = bundle.plugin();
    for (const std::string& each : said) EXPECT_THAT(text, testing::HasSubstr(each));
    for (const std::string& each : unsaid)
      EXPECT_THAT(text.substr(text.find("\n\n")), testing::Not(testing::HasSubstr(each)));
    EXPECT_THAT(text, testing::HasSubstr("lv2:minorVersion 426 ;\n\tlv2:microVersion 8 ;"));
    EXPECT_EQ(bundle.presets(), "");
  }
}

TEST(Lv2Turtle, DescribesOnlyWhatAParameterCanBe) {
  using Unit = platform::AudioUnitParameterUnit;
  support::GivenUnit unit({2, 2},
                          {{.key = "choice",
                            .address = 1,
                            .maxValue = 2,
                            .unit = Unit::indexed,
                            .valueStrings = {"A", "B", "C", "beyond"}},
                           {.key = "shift", .address = 2, .maxValue = 5, .unit = Unit::hertz},
                           {.key = "meter", .address = 3}});
  const lv2_backend::PortLayout layout(unit);
  support::GivenDesign design;
  auto section = support::section("SPACE", {"choice"}, std::nullopt);
  section->stack[0].params[0].siblings = {std::nullopt, "shift"};
  section->feedbackParameter = "meter";
  design.addPage("ONE", {section});
  const orvane::ParameterGroups groups(design, unit.parametersKeys());
  for (const char* key : {"choice", "shift", "meter"}) {
    ASSERT_NE(groups.groupOf(key), nullptr) << key;
    EXPECT_EQ(groups.groupOf(key)->name, "SPACE");
  }
  const std::string text = lv2_backend::PortTurtle(unit, layout, groups, "urn:x").ports();
  for (const char* said : {"pprops:rangeSteps 3 ;", "rdfs:label \"C\"", "lv2:default 2.0 ;"})
    EXPECT_THAT(text, testing::HasSubstr(said));
  for (const char* unsaid : {"beyond", "pprops:logarithmic"})
    EXPECT_THAT(text, testing::Not(testing::HasSubstr(unsaid)));
}

TEST(Lv2Turtle, WritesTextsThatReadBack) {
  for (const auto& [given, literal] :
       std::vector<std::pair<std::string, std::string>>{{"plain", "\"plain\""},
                                                        {"\"\\\n\r\t", "\"\\\"\\\\\\n\\r\\t\""},
                                                        {"\u00e4", "\"\u00e4\""},
                                                        {"\xff", "\"\ufffd\""},
                                                        {std::string("a\0b", 3), "\"a\ufffdb\""}})
    EXPECT_EQ(lv2_backend::turtleString(given), literal);
}

TEST(Lv2Turtle, WritesNumbersThatReadBackExactly) {
  for (const float number :
       {0.0f, 1.0f, -12.0f, 0.1f, 632.4555f, 1e-4f, 1e20f, std::numeric_limits<float>::max(),
        std::numeric_limits<float>::denorm_min()}) {
    const std::string text = lv2_backend::turtleNumber(number);
    EXPECT_EQ(std::strtof(text.c_str(), nullptr), number) << text;
    EXPECT_EQ(text.find('e'), std::string::npos) << text;
    EXPECT_NE(text.find('.'), std::string::npos) << text;
  }
}

}  // namespace

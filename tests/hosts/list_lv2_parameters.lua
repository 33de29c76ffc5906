-- Lists what Ardour makes of a plug-in's parameters, without a display or a sound card:
--
--   LV2_PATH=<build>/lv2 ardour7-lua tests/hosts/list_lv2_parameters.lua urn:orvane:org.orvane.halden
--
-- Ardour is a host that automates control ports only, so a parameter that is missing here cannot be
-- automated in it.

local uri = arg[1] or "urn:orvane:org.orvane.halden"

local backend = AudioEngine:set_backend("None (Dummy)", "", "")
backend:set_sample_rate(48000)
AudioEngine:start(false)

local folder = os.tmpname()
os.remove(folder)
local session = create_session(folder, "parameters", 48000)
assert(session, "no session")

local processor = ARDOUR.LuaAPI.new_plugin(session, uri, ARDOUR.PluginType.LV2, "")
assert(not processor:isnil(), "Ardour does not know " .. uri)
local plugin = processor:to_insert():plugin(0)
print(plugin:name())

local count = 0
for i = 0, plugin:parameter_count() - 1 do
  if plugin:parameter_is_control(i) and plugin:parameter_is_input(i) then
    local _, result = plugin:get_parameter_descriptor(i, ARDOUR.ParameterDescriptor())
    local d = result[2]
    local kind = d.toggled and " toggled" or d.enumeration and " enumeration" or
                 d.integer_step and " integer" or d.logarithmic and " logarithmic" or ""
    print(string.format("%3d %-28s %10g ... %-10g default %g%s", i, d.label, d.lower, d.upper,
                        d.normal, kind))
    local points = {}
    for label, value in pairs(ARDOUR.LuaAPI.desc_scale_points(d)) do
      points[#points + 1] = string.format("%g %s", value, label)
    end
    if #points > 0 then
      table.sort(points)
      print("      " .. table.concat(points, ", "))
    end
    count = count + 1
  end
end
print(count .. " parameters")
for preset in plugin:get_info():get_presets():iter() do print("preset " .. preset.label) end
quit()

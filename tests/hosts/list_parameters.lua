-- Lists what Ardour makes of a plug-in's parameters, without a display or a sound card:
--
--   LV2_PATH=<build>/plugins ardour7-lua tests/hosts/list_parameters.lua LV2 urn:orvane:org.orvane.halden
--
-- Of a VST3, Ardour knows what its scanner has seen; the scanner prints the identifier as "uid":
--
--   ln -s <build>/plugins/Halden.vst3 ~/.vst3/
--   LD_LIBRARY_PATH=/usr/lib/ardour7 /usr/lib/ardour7/ardour-vst3-scanner -f -v ~/.vst3/Halden.vst3
--   ardour7-lua tests/hosts/list_parameters.lua VST3 <uid>
--
-- A parameter that is missing here cannot be automated in Ardour.

local format = arg[1] or "LV2"
local identifier = arg[2] or "urn:orvane:org.orvane.halden"

local backend = AudioEngine:set_backend("None (Dummy)", "", "")
backend:set_sample_rate(48000)
AudioEngine:start(false)

local folder = os.tmpname()
os.remove(folder)
local session = create_session(folder, "parameters", 48000)
assert(session, "no session")

local processor = ARDOUR.LuaAPI.new_plugin(session, identifier, ARDOUR.PluginType[format], "")
assert(not processor:isnil(), "Ardour does not know " .. identifier)
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

-- A session with one plug-in in Ardour, without a display or a sound card. `make` puts the plug-in on a
-- track, moves all that can be moved and saves; `check`, another process as after the host's end, opens the
-- session and compares.
--
--   LV2_PATH=<build>/plugins ardour7-lua tests/hosts/session.lua make FOLDER LV2 urn:orvane:org.orvane.halden
--   LV2_PATH=<build>/plugins ardour7-lua tests/hosts/session.lua check FOLDER
--
-- Prints "ok: ..." or "failed: ...". It leaves without closing the session, in which Lua has its hands.

local mode, folder, format, identifier = arg[1], arg[2], arg[3], arg[4]

local function finish(line)
  print(line)
  io.stdout:flush()
  os.exit(line:sub(1, 2) == "ok" and 0 or 1)
end

-- What can be set, with its place among all controls, by which Ardour sets them.
local function inputs(plugin)
  local found, place = {}, -1
  for i = 0, plugin:parameter_count() - 1 do
    if plugin:parameter_is_control(i) then
      place = place + 1
      if plugin:parameter_is_input(i) then
        local _, result = plugin:get_parameter_descriptor(i, ARDOUR.ParameterDescriptor())
        found[#found + 1] = { place = place, d = result[2] }
      end
    end
  end
  return found
end

local backend = AudioEngine:set_backend("None (Dummy)", "", "")
backend:set_sample_rate(48000)
backend:set_buffer_size(256)
AudioEngine:start(false)

if mode == "make" then
  local session = create_session(folder, "lab", 48000)
  if not session then finish("failed: no session") end
  session:new_audio_track(2, 2, nil, 1, "lab", ARDOUR.PresentationInfo.max_order,
                          ARDOUR.TrackMode.Normal, true)
  local made = ARDOUR.LuaAPI.new_plugin(session, identifier, ARDOUR.PluginType[format], "")
  if made:isnil() then finish("failed: " .. identifier .. " is not known") end
  local route = session:route_by_name("lab")
  if route:add_processor_by_index(made, 0, nil, true) ~= 0 then finish("failed: it cannot be added") end
  local plugin = made:to_insert():plugin(0)
  local all = inputs(plugin)
  for n, each in ipairs(all) do
    local d = each.d
    -- Of a VST3 nobody tells Ardour the steps, which the ends are among.
    local share = format == "VST3" and n % 2 or (n * 37 % 100) / 100
    local value = d.lower + share * (d.upper - d.lower)
    if d.integer_step or d.enumeration or d.toggled then value = math.floor(value + 0.5) end
    ARDOUR.LuaAPI.set_processor_param(made, each.place, value)
  end
  sleep(1) -- blocks go by
  local file = io.open(folder .. "/wanted", "w")
  for _, each in ipairs(all) do
    file:write(ARDOUR.LuaAPI.get_processor_param(made, each.place), "\n")
  end
  file:close()
  session:save_state("")
  finish("ok: " .. #all .. " parameters saved")
end

local session = load_session(folder, "lab")
if not session then finish("failed: the session does not open again") end
local processor = session:route_by_name("lab"):nth_plugin(0)
if processor:isnil() then finish("failed: the plug-in is not there") end
sleep(1)
local wanted = io.lines(folder .. "/wanted")
local count = 0
for _, each in ipairs(inputs(processor:to_insert():plugin(0))) do
  local before, now = tonumber(wanted()), ARDOUR.LuaAPI.get_processor_param(processor, each.place)
  if math.abs(now - before) > 1e-4 * (each.d.upper - each.d.lower) then
    finish("failed: " .. each.d.label .. " was " .. before .. " and is " .. now)
  end
  count = count + 1
end
finish("ok: " .. count .. " parameters as they were")

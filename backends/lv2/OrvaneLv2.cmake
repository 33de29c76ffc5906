# The LV2 bundle of a plug-in:
#
#   orvane_add_lv2(<target>
#     NAME <name>             the bundle is <name>.lv2
#     [INSTRUMENT] [KIND <kind>]  see orvane_add_plugin
#     [NO_INSTALL]            for a plug-in that nobody is to have; it stays in its own build folder
#     [MIDI_INPUT <ON or OFF>]  ON unless told; see orvane_add_plugin
#     [LICENSE <address>]     of the binaries; GPL 3 unless told, since the editor contains JUCE
#     [SOURCES <sources>]     one of them, or of the libraries, defines
#     [LIBRARIES <targets>])  const orvane::PluginEntry& orvanePluginEntry()
#
# The target <target>_LV2 makes <build>/plugins/<name>.lv2 with the sound, the editor (where JUCE is
# there) and the files that describe them, which a small program linked with the plug-in writes.
# What else callers say of a plug-in, the plug-in's own entry says too.

function(orvane_add_lv2 target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INSTRUMENT;NO_INSTALL"
    "NAME;LICENSE;IDENTIFIER;VERSION;MANUFACTURER;MIDI_INPUT;KIND" "SOURCES;LIBRARIES")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvane_add_lv2(${target}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  if(NOT arg_NAME)
    message(FATAL_ERROR "orvane_add_lv2(${target}) needs NAME")
  endif()
  if(NOT arg_LICENSE)
    set(arg_LICENSE "http://www.gnu.org/licenses/gpl-3.0.html")
  endif()
  if(arg_INSTRUMENT)
    orvane_plugin_kind("${arg_KIND}" INSTRUMENT categories class)
  else()
    orvane_plugin_kind("${arg_KIND}" EFFECT categories class)
  endif()
  set(midi_input "ORVANE_MIDI_INPUT=1")
  if(DEFINED arg_MIDI_INPUT AND NOT arg_MIDI_INPUT)
    set(midi_input "ORVANE_MIDI_INPUT=0")
  endif()
  set(folder "${CMAKE_BINARY_DIR}/plugins")
  if(arg_NO_INSTALL)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}")
  endif()
  set(bundle "${folder}/${arg_NAME}.lv2")
  set(libraries ${target}_LV2_Sound)
  set(sound "${arg_NAME}${CMAKE_SHARED_MODULE_SUFFIX}")
  set(editor "")

  add_library(${target}_LV2_Sound MODULE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/SoundEntry.cpp" ${arg_SOURCES})
  target_link_libraries(${target}_LV2_Sound PRIVATE ${arg_LIBRARIES} orvane::lv2)
  set_target_properties(${target}_LV2_Sound PROPERTIES OUTPUT_NAME "${arg_NAME}")

  if(TARGET orvane::lv2_editor)
    set(editor "${arg_NAME}_editor${CMAKE_SHARED_MODULE_SUFFIX}")
    add_library(${target}_LV2_Editor MODULE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/EditorEntry.cpp" ${arg_SOURCES})
    target_link_libraries(${target}_LV2_Editor PRIVATE ${arg_LIBRARIES} orvane::lv2_editor)
    set_target_properties(${target}_LV2_Editor PROPERTIES OUTPUT_NAME "${arg_NAME}_editor")
    target_compile_definitions(${target}_LV2_Editor PRIVATE ${midi_input})
    # JUCE leaves X11's error handlers in the process.
    target_link_options(${target}_LV2_Editor PRIVATE -Wl,-z,nodelete)
    list(APPEND libraries ${target}_LV2_Editor)
  endif()

  foreach(library IN LISTS libraries)
    orvane_configure_target(${library})
    set_target_properties(${library} PROPERTIES
      PREFIX ""
      LIBRARY_OUTPUT_DIRECTORY "${bundle}"
      LINK_DEPENDS "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map")
    # Not even what the compiler exports by itself may meet another plug-in's copy.
    # What is not linked would only be missed by the host.
    if(NOT ORVANE_SANITIZE)
      target_link_options(${library} PRIVATE LINKER:-z,defs)
    endif()
    target_link_options(${library} PRIVATE
      "LINKER:--version-script=${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map")
  endforeach()

  orvane_add_executable(${target}_LV2_Turtle
    SOURCES "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/BundleMain.cpp" ${arg_SOURCES}
    DEPENDS ${arg_LIBRARIES} orvane::lv2)
  target_compile_definitions(${target}_LV2_Turtle PRIVATE ${midi_input})
  set_target_properties(${target}_LV2_Turtle PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
  add_custom_command(
    OUTPUT "${bundle}/manifest.ttl" "${bundle}/plugin.ttl"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${bundle}"
    COMMAND ${target}_LV2_Turtle "${bundle}" plugin.ttl "${arg_LICENSE}" "${sound}" "${editor}" "${class}"
    DEPENDS ${target}_LV2_Turtle
    COMMENT "Describing ${arg_NAME}.lv2"
    VERBATIM)
  add_custom_target(${target}_LV2 ALL DEPENDS "${bundle}/manifest.ttl" "${bundle}/plugin.ttl")
  add_dependencies(${target}_LV2 ${libraries})
  if(NOT arg_NO_INSTALL)
    install(DIRECTORY "${bundle}" DESTINATION ${CMAKE_INSTALL_LIBDIR}/lv2 USE_SOURCE_PERMISSIONS)
  endif()
endfunction()

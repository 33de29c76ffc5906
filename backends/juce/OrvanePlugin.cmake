# What a plug-in is made of, as a host gets it:
#
#   orvane_add_plugin(<target>
#     NAME <name>                     as hosts list it
#     IDENTIFIER <reverse domain>     unique among all plug-ins
#     VERSION <a.b.c>
#     CODE <four characters>          at least one of them upper case
#     MANUFACTURER <name>
#     MANUFACTURER_CODE <four characters>
#     [DESCRIPTION <sentence>]
#     [BUILD <number>]                1 unless told
#     [STORE_IDENTIFIER <text>]       what the app store calls it, for the page that reviews it
#     [INSTRUMENT]                    else an effect
#     [KIND <kind>]                   Delay, Reverb, Synth...: where hosts list it; those that there
#                                     are stand in cmake/OrvanePluginKinds.cmake
#     [MIDI_INPUT <ON or OFF>]        ON unless told: hosts send MIDI to effects too, for MIDI learn;
#                                     without it no format but the stand-alone offers that
#     FORMATS [Standalone] [VST3] [LV2]
#     SOURCES <sources>               define const orvane::PluginEntry& orvanePluginEntry()
#     [LIBRARIES <targets>])
#
# Each format is a target <target>_<format>, <target>_All builds them. They land in
# <build>/plugins and are installed where hosts look.

function(orvane_add_plugin target)
  set(one NAME IDENTIFIER VERSION CODE MANUFACTURER MANUFACTURER_CODE DESCRIPTION
    BUILD STORE_IDENTIFIER MIDI_INPUT KIND)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INSTRUMENT" "${one}" "FORMATS;SOURCES;LIBRARIES")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "orvane_add_plugin(${target}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  foreach(needed IN ITEMS NAME IDENTIFIER VERSION CODE MANUFACTURER MANUFACTURER_CODE FORMATS SOURCES)
    if(NOT arg_${needed})
      message(FATAL_ERROR "orvane_add_plugin(${target}) needs ${needed}")
    endif()
  endforeach()

  if(NOT DEFINED arg_MIDI_INPUT OR arg_INSTRUMENT)
    set(arg_MIDI_INPUT ON)
  endif()
  list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/"
    REGEX "^[^/]")
  set(folder "${CMAKE_BINARY_DIR}/plugins")
  if(NOT TARGET ${target}_All)
    add_custom_target(${target}_All)
  endif()

  set(information NAME "${arg_NAME}" IDENTIFIER "${arg_IDENTIFIER}" VERSION "${arg_VERSION}"
    BUILD "${arg_BUILD}" STORE_IDENTIFIER "${arg_STORE_IDENTIFIER}")

  if("Standalone" IN_LIST arg_FORMATS)
    orvane_add_executable(${target}_Standalone
      SOURCES "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/StandaloneMain.cpp" ${arg_SOURCES}
      DEPENDS ${arg_LIBRARIES} orvane::juce)
    set_target_properties(${target}_Standalone PROPERTIES
      OUTPUT_NAME "${arg_NAME}"
      RUNTIME_OUTPUT_DIRECTORY "${folder}")
    install(TARGETS ${target}_Standalone RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    set(list "${CMAKE_BINARY_DIR}/share/${arg_NAME}/Info.plist")
    orvane_write_information("${list}" ${information})
    install(FILES "${list}" DESTINATION "${CMAKE_INSTALL_BINDIR}/../share/${arg_NAME}")
    add_dependencies(${target}_All ${target}_Standalone)
  endif()

  if("VST3" IN_LIST arg_FORMATS)
    orvane_add_vst3(${target})
    add_dependencies(${target}_All ${target}_VST3)
  endif()

  if("LV2" IN_LIST arg_FORMATS AND COMMAND orvane_add_lv2)
    set(kind "")
    if(arg_INSTRUMENT)
      list(APPEND kind INSTRUMENT)
    endif()
    if(arg_KIND)
      list(APPEND kind KIND ${arg_KIND})
    endif()
    orvane_add_lv2(${target}
      NAME "${arg_NAME}"
      IDENTIFIER "${arg_IDENTIFIER}"
      VERSION "${arg_VERSION}"
      MANUFACTURER "${arg_MANUFACTURER}"
      ${kind}
      MIDI_INPUT ${arg_MIDI_INPUT}
      SOURCES ${arg_SOURCES}
      LIBRARIES ${arg_LIBRARIES})
    add_dependencies(${target}_All ${target}_LV2)
  endif()
endfunction()

# The arguments are the caller's.
macro(orvane_add_vst3 target)
  if(arg_INSTRUMENT)
    orvane_plugin_kind("${arg_KIND}" INSTRUMENT categories class)
  else()
    orvane_plugin_kind("${arg_KIND}" EFFECT categories class)
  endif()
  # JUCE's wrapper compiles against the modules that are compiled already; only its own sources
  # are built for each plug-in.
  juce_add_plugin(${target}_Juce
    PLUGIN_NAME "${arg_NAME}"
    PRODUCT_NAME "${arg_NAME}"
    VERSION "${arg_VERSION}"
    BUNDLE_ID "${arg_IDENTIFIER}"
    COMPANY_NAME "${arg_MANUFACTURER}"
    DESCRIPTION "${arg_DESCRIPTION}"
    PLUGIN_MANUFACTURER_CODE "${arg_MANUFACTURER_CODE}"
    PLUGIN_CODE "${arg_CODE}"
    IS_SYNTH ${arg_INSTRUMENT}
    NEEDS_MIDI_INPUT ${arg_MIDI_INPUT}
    NEEDS_MIDI_OUTPUT FALSE
    EDITOR_WANTS_KEYBOARD_FOCUS TRUE
    VST3_CATEGORIES ${categories}
    FORMATS VST3)
  target_sources(${target}_Juce PRIVATE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/PluginFilter.cpp" ${arg_SOURCES})
  target_link_libraries(${target}_Juce PRIVATE ${arg_LIBRARIES} orvane::juce)
  target_compile_features(${target}_Juce PRIVATE cxx_std_20)
  # For the definitions that the modules were compiled with.
  target_link_libraries(${target}_Juce_VST3 PRIVATE orvane::juce_modules)
  # Hosts get the factory of our entry, which asks JUCE's.
  target_sources(${target}_Juce_VST3 PRIVATE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Vst3Entry.cpp")
  target_compile_definitions(${target}_Juce_VST3 PRIVATE GetPluginFactory=orvaneJuceFactory)
  target_link_libraries(${target}_Juce_VST3 PRIVATE juce_vst3_headers)
  # Not even what the compiler exports by itself may meet another plug-in's copy.
  target_link_options(${target}_Juce_VST3 PRIVATE
    "LINKER:--version-script=${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vst3.map")
  set_property(TARGET ${target}_Juce_VST3 APPEND PROPERTY
    LINK_DEPENDS "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vst3.map")
  # A target of the whole plug-in is there already.
  add_custom_target(${target}_VST3 DEPENDS ${target}_Juce_VST3)
  set(bundle "${folder}/${arg_NAME}.vst3")
  set_target_properties(${target}_Juce_VST3 PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY "${bundle}/Contents/${CMAKE_SYSTEM_PROCESSOR}-linux"
    EXCLUDE_FROM_ALL FALSE)
  orvane_write_information("${bundle}/Contents/Info.plist" ${information})
  install(DIRECTORY "${bundle}" DESTINATION ${CMAKE_INSTALL_LIBDIR}/vst3 USE_SOURCE_PERMISSIONS)
endmacro()

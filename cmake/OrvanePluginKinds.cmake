# What a plug-in is, as hosts sort it:
#
#   orvane_plugin_kind(<kind> <INSTRUMENT or EFFECT> <variable for VST3> <variable for LV2>)
#
# gives VST3's categories and the name of LV2's class; the class of a plug-in without a kind is empty.
# A kind that is not listed, or of the other sort, is an error. The table is within the function, since
# projects call it from directories that do not see this file's variables.

function(orvane_plugin_kind kind sort vst3 lv2)
  #    kind         VST3          LV2
  set(INSTRUMENT
      "Drums        Drum          Instrument"
      "Piano        Piano         Instrument"
      "Sampler      Sampler       Instrument"
      "Synth        Synth         Instrument")
  set(EFFECT
      "Amplifier    Tools         Amplifier"
      "Analyzer     Analyzer      Analyser"
      "Chorus       Modulation    Chorus"
      "Compressor   Dynamics      Compressor"
      "Delay        Delay         Delay"
      "Distortion   Distortion    Distortion"
      "Dynamics     Dynamics      Dynamics"
      "Equalizer    EQ            EQ"
      "Filter       Filter        Filter"
      "Flanger      Modulation    Flanger"
      "Gate         Dynamics      Gate"
      "Generator    Generator     Generator"
      "Limiter      Dynamics      Limiter"
      "Modulator    Modulation    Modulator"
      "Phaser       Modulation    Phaser"
      "Pitch        Pitch_Shift   Pitch"
      "Reverb       Reverb        Reverb"
      "Spatial      Spatial       Spatial"
      "Utility      Tools         Utility")
  set(categories Fx)
  if(sort STREQUAL "INSTRUMENT")
    set(categories Instrument)
  endif()
  set(class "")
  if(kind)
    foreach(row IN LISTS ${sort})
      if(row MATCHES "^${kind} +([A-Za-z_]+) +([A-Za-z]+)$")
        string(REPLACE "_" " " category "${CMAKE_MATCH_1}")
        list(APPEND categories "${category}")
        set(class "${CMAKE_MATCH_2}Plugin")
      endif()
    endforeach()
    if(NOT class)
      string(REGEX REPLACE "([A-Za-z]+) +[^;]+" "\\1" known "${${sort}}")
      string(REPLACE ";" ", " known "${known}")
      string(TOLOWER "${sort}" sort)
      message(FATAL_ERROR "There is no ${sort} of the kind ${kind}; there are ${known}")
    endif()
  endif()
  set(${vst3} "${categories}" PARENT_SCOPE)
  set(${lv2} "${class}" PARENT_SCOPE)
endfunction()

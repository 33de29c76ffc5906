orvane_add_tests(tool
  SOURCES
    DescriptionTest.cpp
    DriveTest.cpp
    MenuRoadTest.cpp
    PresetBrowserTest.cpp
    PresetsCommandTest.cpp
    ToolCommandTest.cpp
    ToolNonsenseTest.cpp
    ${Orvane_SOURCE_DIR}/fuzz/PresetFolderTarget.cpp
  DEPENDS orvane::tool nlohmann_json::nlohmann_json)

orvane_add_tests(kestroui
  SOURCES
    ChoiceControlsTest.cpp
    ContainerTest.cpp
    ControlGesturesTest.cpp
    ControlPicturesTest.cpp
    ControlTypeTest.cpp
    DisplayContainersTest.cpp
    DropDownListTest.cpp
    GestureControlTest.cpp
    ShapeKindsTest.cpp
    MidiMapBadgeTest.cpp
  DEPENDS orvane::kestroui orvane::toolkit orvane::foundation)

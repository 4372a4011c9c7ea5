# pointalk, the program for a Linux desktop, with the desktop's own libraries. Where one of them is missing it is left out,
# but for the rules of its protocols, which need none.
set(rules linux/roles.cpp linux/ssip.cpp linux/ssip_talk.cpp linux/utf8.cpp)
list(TRANSFORM rules PREPEND ${PROJECT_SOURCE_DIR}/)
pointalk_library(pointalk_linux_rules SOURCES ${rules} LIBRARIES pointalk_text)

find_package(Qt6 COMPONENTS Widgets QUIET)
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
  pkg_check_modules(pointalk_desktop QUIET IMPORTED_TARGET x11 xi libsystemd fluidsynth)
endif()
set(pointalk_has_desktop OFF)
if(Qt6_FOUND AND pointalk_desktop_FOUND)
  set(pointalk_has_desktop ON)
endif()
# No option: off for want of a library, it would stay off once that is there. The sanitized builds are for the core.
if(NOT DEFINED POINTALK_PROGRAM)
  set(POINTALK_PROGRAM ${pointalk_has_desktop})
  if(POINTALK_SANITIZE)
    set(POINTALK_PROGRAM OFF)
  endif()
endif()
if(POINTALK_PROGRAM)
  find_package(Qt6 COMPONENTS Widgets REQUIRED)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(pointalk_desktop REQUIRED IMPORTED_TARGET x11 xi libsystemd fluidsynth)

  file(READ ${PROJECT_SOURCE_DIR}/packaging/PTK.ini POINTALK_STARTING_SETTINGS)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/packaging/PTK.ini)
  configure_file(${PROJECT_SOURCE_DIR}/linux/starting_settings.h.in ${PROJECT_BINARY_DIR}/made/starting_settings.h
                 @ONLY)

  # Apart from the rest, for names of Qt are macros in the headers of Xlib.
  set(x_sources linux/x_display.cpp linux/x_windows.cpp linux/input.cpp linux/input_watcher.cpp)
  pointalk_library(pointalk_x SOURCES ${x_sources}
                   LIBRARIES pointalk_core PkgConfig::pointalk_desktop Threads::Threads)
  pointalk_glob(linux_sources linux/*.cpp)
  list(TRANSFORM x_sources PREPEND ${PROJECT_SOURCE_DIR}/)
  list(REMOVE_ITEM linux_sources ${rules} ${x_sources} ${PROJECT_SOURCE_DIR}/linux/linux_main.cpp)
  pointalk_library(pointalk_linux SOURCES ${linux_sources} LIBRARIES pointalk_linux_rules pointalk_x Qt6::Widgets)
  target_compile_definitions(pointalk_linux PUBLIC QT_NO_KEYWORDS)  # "signals" is a word of the system's too
  target_include_directories(pointalk_linux PRIVATE ${PROJECT_BINARY_DIR}/made)
  pointalk_program(pointalk SOURCES linux/linux_main.cpp LIBRARIES pointalk_linux)

  # What the tests and the tour need on their desktop.
  add_library(pointalk_note_recorder MODULE EXCLUDE_FROM_ALL x11/note_recorder.cpp)
  target_link_libraries(pointalk_note_recorder PRIVATE pointalk_compiling ${CMAKE_DL_LIBS})
  pointalk_glob(target_sources tests/linux/accessible_target/*.cpp)
  pointalk_program(pointalk_accessible_target SOURCES ${target_sources}
                   LIBRARIES PkgConfig::pointalk_desktop Xext nlohmann_json::nlohmann_json)
  pointalk_program(pointalk_qt_target SOURCES tests/linux/qt_target.cpp LIBRARIES Qt6::Widgets)
  set_target_properties(pointalk_accessible_target pointalk_qt_target PROPERTIES EXCLUDE_FROM_ALL ON)
  foreach(target pointalk_accessible_target pointalk_qt_target)
    target_compile_options(${target} PRIVATE -O0)  # sooner compiled, and quick enough
  endforeach()
endif()

# Helpers that turn folders into targets.

# Sets `result` to the files that match the patterns (relative to the repository root), looked up again at every build.
function(pointalk_glob result)
  list(TRANSFORM ARGN PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE patterns)
  file(GLOB files CONFIGURE_DEPENDS ${patterns})
  set(${result} ${files} PARENT_SCOPE)
endfunction()

# A static library of ours from `SOURCES`, with the libraries that its users need as well.
function(pointalk_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_LIBRARIES} PRIVATE pointalk_compiling)
  if(POINTALK_CLANG_TIDY)
    set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${POINTALK_CLANG_TIDY}")
  endif()
endfunction()

# A room: the library of its folder, linked to the rooms that it may see. That the linker holds it to them, a program
# that consists of all of the room and of those rooms is linked as well.
function(pointalk_room room)
  list(TRANSFORM ARGN PREPEND pointalk_ OUTPUT_VARIABLE seen)
  pointalk_glob(sources ${room}/*.cpp)
  pointalk_library(pointalk_${room} SOURCES ${sources} LIBRARIES ${seen})
  if(NOT WIN32)
    set(main ${PROJECT_BINARY_DIR}/empty_main.cpp)
    file(CONFIGURE OUTPUT ${main} CONTENT "int main() {}\n")
    add_executable(pointalk_${room}_alone ${main})
    target_link_libraries(pointalk_${room}_alone PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,pointalk_${room}>)
  endif()
endfunction()

# A program of ours.
function(pointalk_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE pointalk_compiling ${arg_LIBRARIES})
endfunction()

# A program of tests: GoogleTest's and GoogleMock's headers are read once for all its files.
function(pointalk_test_program name)
  pointalk_program(${name} ${ARGN})
  target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

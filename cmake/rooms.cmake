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
  if(POINTALK_FUZZ)
    # The fuzz targets look for new ways through these; tests compile in half the time without.
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# A library of the program itself. Where the program has a build of its own with another compiler (see mingw.cmake), what
# comes from there is used here too, so that tests have the very code that is shipped.
function(pointalk_product_library name)
  if(NOT POINTALK_PROGRAM_BUILD)
    pointalk_library(${name} ${ARGN})
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_library(${name} STATIC IMPORTED GLOBAL)
  set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${POINTALK_PROGRAM_BUILD}/lib${name}.a SYSTEM OFF)
  target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} INTERFACE ${arg_LIBRARIES})
  add_dependencies(${name} Pointalk)
  set_property(GLOBAL APPEND PROPERTY POINTALK_BUILT_WITH_THE_PROGRAM ${POINTALK_PROGRAM_BUILD}/lib${name}.a)
endfunction()

# A room: the library of its folder, linked to the rooms that it may see. That the linker holds it to them, a program
# that consists of all of the room and of those rooms is linked as well.
function(pointalk_room room)
  list(TRANSFORM ARGN PREPEND pointalk_ OUTPUT_VARIABLE seen)
  pointalk_glob(sources ${room}/*.cpp)
  pointalk_product_library(pointalk_${room} SOURCES ${sources} LIBRARIES ${seen})
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

option(POINTALK_PRECOMPILE "Read the large headers once for all files of a target" ON)

# Has these headers read once for all files of a target that is not compiled as one. A build without it shows whether each file
# includes what it uses.
function(pointalk_precompile name)
  get_target_property(is_joined ${name} UNITY_BUILD)
  get_target_property(mode ${name} UNITY_BUILD_MODE)
  if(POINTALK_PRECOMPILE AND (NOT is_joined OR mode STREQUAL "GROUP"))
    target_precompile_headers(${name} PRIVATE ${ARGN})
    if(MINGW)
      # gcc 12 forgets then which headers are the system's, and warns of what it inlines from them.
      target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-stringop-overread)
    endif()
  endif()
endfunction()

# The same for the headers of Windows, which most of its files need.
function(pointalk_precompile_windows name)
  pointalk_precompile(${name} <windows.h> <oleacc.h> <algorithm> <array> <functional> <memory> <optional> <string>
                      <string_view> <vector>)
endfunction()

# A program of tests: it waits for compilers more than it computes. Where a build compiles targets as one file, it compiles
# the tests of a folder as one with BY_FOLDER, for a program that would be one too large file. In a sanitized build what the
# tests themselves do with memory is watched and the rest is not: with it they take half as long again to compile.
function(pointalk_test_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "BY_FOLDER" "" "SOURCES;LIBRARIES")
  pointalk_program(${name} SOURCES ${arg_SOURCES} LIBRARIES ${arg_LIBRARIES})
  if(arg_BY_FOLDER)
    set_target_properties(${name} PROPERTIES UNITY_BUILD_MODE GROUP)
    foreach(source IN LISTS arg_SOURCES)
      cmake_path(GET source PARENT_PATH folder)
      cmake_path(GET folder FILENAME group)
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
    endforeach()
  endif()
  if(MINGW)
    # Each routine that is not inlined is a section, and the linker's time grows with their square.
    target_compile_options(${name} PRIVATE -O1 -fno-function-sections -fno-data-sections)
  elseif(NOT MSVC)
    target_compile_options(${name} PRIVATE -O0)
    if(POINTALK_SANITIZE)
      target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
    endif()
  endif()
  pointalk_precompile(${name} <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

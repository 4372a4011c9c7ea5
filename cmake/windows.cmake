# Windows targets: Pointalk.exe, the contract suite and the benchmarks that run there, and what Wine and the tests under it need.

# libuuid has to come before liboleacc: the other order links a wrong IID_IAccessible.
set(pointalk_system_libraries user32 gdi32 uuid ole32 oleaut32 oleacc winmm advapi32 shell32 comctl32)

pointalk_glob(win32_sources win32/*.cpp)
list(FILTER win32_sources EXCLUDE REGEX "/win32/win_main\\.cpp$")
pointalk_product_library(pointalk_win32 SOURCES ${win32_sources} LIBRARIES pointalk_core ${pointalk_system_libraries})

if(POINTALK_PROGRAM_BUILD)
  get_property(libraries GLOBAL PROPERTY POINTALK_BUILT_WITH_THE_PROGRAM)
  include(ExternalProject)
  ExternalProject_Add(Pointalk
    SOURCE_DIR ${PROJECT_SOURCE_DIR} BINARY_DIR ${POINTALK_PROGRAM_BUILD} PREFIX ${PROJECT_BINARY_DIR}/program-steps
    CMAKE_CACHE_ARGS -DPOINTALK_THREADS:STRING=win32 -DPOINTALK_TESTS:BOOL=OFF
                     -DCMAKE_TOOLCHAIN_FILE:FILEPATH=${CMAKE_TOOLCHAIN_FILE} -DCMAKE_BUILD_TYPE:STRING=${CMAKE_BUILD_TYPE}
                     -DPOINTALK_PRECOMPILE:BOOL=${POINTALK_PRECOMPILE} -DPOINTALK_WERROR:BOOL=${POINTALK_WERROR}
                     -DCMAKE_UNITY_BUILD:BOOL=${CMAKE_UNITY_BUILD} -DCMAKE_UNITY_BUILD_BATCH_SIZE:STRING=0
    BUILD_COMMAND ${CMAKE_COMMAND} --build <BINARY_DIR> --target Pointalk BUILD_ALWAYS ON USES_TERMINAL_BUILD ON
    BUILD_BYPRODUCTS ${libraries}
    INSTALL_COMMAND ${CMAKE_COMMAND} -E copy_if_different <BINARY_DIR>/Pointalk.exe ${PROJECT_BINARY_DIR}/Pointalk.exe)
else()
  pointalk_precompile_windows(pointalk_win32)
  include(${CMAKE_CURRENT_LIST_DIR}/pointalk_exe.cmake)
endif()

set(POINTALK_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "GoogleTest's sources, compiled for Windows here")
if(EXISTS ${POINTALK_GOOGLETEST_DIR}/CMakeLists.txt)
  set(pointalk_has_googletest ON)
else()
  set(pointalk_has_googletest OFF)
endif()
# No option: off for want of GoogleTest, it would stay off once that is there.
if(NOT DEFINED POINTALK_TESTS)
  set(POINTALK_TESTS ${pointalk_has_googletest})
endif()
if(POINTALK_TESTS)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${POINTALK_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  if(MINGW)
    foreach(library gtest gmock gmock_main)
      target_compile_options(${library} PRIVATE -O0)  # it is sooner compiled, and little of it runs
    endforeach()
  endif()

  pointalk_glob(contract_sources tests/contract/*_test.cpp tests/contract/win32/*.cpp)
  if(contract_sources)
    pointalk_test_program(pointalk_contract SOURCES ${contract_sources} LIBRARIES pointalk_win32 gmock_main)
    pointalk_precompile_windows(pointalk_contract)
  endif()

  pointalk_glob(bench_sources tests/bench/win32/*.cpp)
  pointalk_library(pointalk_watched SOURCES ${PROJECT_SOURCE_DIR}/tests/support/watched_platform.cpp LIBRARIES pointalk_core)
  foreach(source IN LISTS bench_sources)
    cmake_path(GET source STEM name)
    pointalk_program(${name} SOURCES ${source} LIBRARIES pointalk_win32 pointalk_watched)
  endforeach()

  add_subdirectory(tests/program)
  add_subdirectory(tests/wine)
endif()

# The tour needs these too, on machines without GoogleTest. A program loads the voice and the synthesizer of its own width.
add_subdirectory(wine)
if(POINTALK_TESTS)
  # The contract suite asks the target, and listens to the synthesizer, which has to lie beside it to be loaded.
  add_dependencies(pointalk_contract pointalk_target pointalk_winmm)
  add_custom_command(TARGET pointalk_contract POST_BUILD COMMAND ${CMAKE_COMMAND} -E copy_if_different
                     $<TARGET_FILE:pointalk_winmm> $<TARGET_FILE_DIR:pointalk_contract>)
endif()

# Native targets: the simulated desktop, the rehearsal player, tests, fuzz targets and benchmarks.
find_package(nlohmann_json 3 REQUIRED)
find_package(Threads REQUIRED)

pointalk_glob(sim_sources sim/*.cpp)
list(FILTER sim_sources EXCLUDE REGEX "/sim/rehearse_main\\.cpp$")
pointalk_library(pointalk_sim SOURCES ${sim_sources} LIBRARIES pointalk_core nlohmann_json::nlohmann_json)
pointalk_program(pointalk-rehearse SOURCES sim/rehearse_main.cpp LIBRARIES pointalk_sim)

include(${CMAKE_CURRENT_LIST_DIR}/linux_desktop.cmake)

find_package(GTest QUIET)
# No option: off for want of GoogleTest with GoogleMock, it would stay off once that is there. The same for the benchmarks.
if(NOT DEFINED POINTALK_TESTS)
  set(POINTALK_TESTS ${GTest_FOUND})
endif()
if(POINTALK_TESTS)
  find_package(GTest REQUIRED)
  enable_testing()

  pointalk_glob(test_sources tests/text/*.cpp tests/input/*.cpp tests/speech/*.cpp tests/tones/*.cpp tests/settings/*.cpp
                tests/crash/*.cpp tests/registry/*.cpp tests/reader/*.cpp tests/app/*.cpp tests/sim/*.cpp tests/support/*.cpp tests/linux/*_test.cpp)
  pointalk_test_program(pointalk_tests BY_FOLDER SOURCES ${test_sources}
                        LIBRARIES pointalk_sim pointalk_linux_rules GTest::gmock_main Threads::Threads)
  target_compile_definitions(pointalk_tests PRIVATE POINTALK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  add_test(NAME pointalk_tests COMMAND pointalk_tests)

  pointalk_glob(contract_sources tests/contract/*_test.cpp tests/contract/sim/*.cpp)
  if(contract_sources)
    pointalk_test_program(pointalk_contract SOURCES ${contract_sources}
                          LIBRARIES pointalk_sim GTest::gmock_main Threads::Threads)
    add_test(NAME pointalk_contract COMMAND pointalk_contract)
  endif()
  if(POINTALK_PROGRAM)
    pointalk_glob(contract_sources tests/contract/*_test.cpp tests/contract/linux/*.cpp)
    pointalk_test_program(pointalk_contract_linux SOURCES ${contract_sources}
                          LIBRARIES pointalk_linux nlohmann_json::nlohmann_json GTest::gmock)
    # As one file the headers of Qt and GoogleTest are read once, which is cheaper than to compile them ahead.
    set_target_properties(pointalk_contract_linux PROPERTIES EXCLUDE_FROM_ALL ON UNITY_BUILD_MODE BATCH
                          DISABLE_PRECOMPILE_HEADERS ON)
    add_dependencies(pointalk_contract_linux pointalk_accessible_target)
  endif()

  find_package(Python3 COMPONENTS Interpreter QUIET)
  if(Python3_FOUND)
    set(tools ${PROJECT_SOURCE_DIR}/tools)
    add_test(NAME rehearsals COMMAND Python3::Interpreter ${tools}/check_rehearsals.py
             --program $<TARGET_FILE:pointalk-rehearse>)
    add_test(NAME tools COMMAND Python3::Interpreter -m pytest -q ${tools}/tests)
    foreach(check layers includes given_names guide scripts)
      add_test(NAME check-${check} COMMAND Python3::Interpreter ${tools}/check_${check}.py)
    endforeach()
    if(POINTALK_FUZZ)
      add_test(NAME fuzz COMMAND Python3::Interpreter ${tools}/run_fuzzers.py ${PROJECT_BINARY_DIR})
    endif()
  endif()
endif()

if(POINTALK_FUZZ)
  pointalk_glob(fuzz_sources tests/fuzz/*_fuzz.cpp)
  foreach(source IN LISTS fuzz_sources)
    cmake_path(GET source STEM name)
    pointalk_program(${name} SOURCES ${source} LIBRARIES pointalk_sim)
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  endforeach()
endif()

find_package(benchmark QUIET)
if(NOT DEFINED POINTALK_BENCH)
  set(POINTALK_BENCH ${benchmark_FOUND})
endif()
pointalk_glob(bench_sources tests/bench/*_bench.cpp tests/support/*.cpp tests/sim/simulated.cpp)
if(POINTALK_BENCH AND bench_sources)
  find_package(benchmark REQUIRED)
  pointalk_program(pointalk_bench SOURCES ${bench_sources} LIBRARIES pointalk_sim benchmark::benchmark_main)
endif()

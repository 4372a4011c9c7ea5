# How our own sources are compiled: `pointalk_compiling` is linked privately to every target of ours and to nothing else,
# so that other people's code (GoogleTest) keeps its own warnings.

# The sources are kept free of warnings for these compilers; a newer one may know warnings that nobody has seen yet.
set(pointalk_reference_compiler OFF)
if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
   OR (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15))
  set(pointalk_reference_compiler ON)
endif()
option(POINTALK_WERROR "Treat warnings in our sources as errors" ${pointalk_reference_compiler})

add_library(pointalk_compiling INTERFACE)
if(MSVC)
  set(warnings /W4 /permissive- /utf-8 $<$<BOOL:${POINTALK_WERROR}>:/WX>)
  target_compile_options(pointalk_compiling INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
else()
  set(warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${POINTALK_WERROR}>:-Werror>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    list(APPEND warnings -Wno-restrict)  # gcc 12 sees overlapping copies in its own std::string operator+
  endif()
  target_compile_options(pointalk_compiling INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
endif()

# Sanitizers have to be in every object of a program, so these are options of the directory.
set(POINTALK_SANITIZE "" CACHE STRING "Sanitizers, comma-separated, for example address,undefined")
if(POINTALK_SANITIZE)
  add_compile_options(-fsanitize=${POINTALK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  add_link_options(-fsanitize=${POINTALK_SANITIZE})
endif()
option(POINTALK_FUZZ "Build the fuzz targets (needs clang)" OFF)

if(WIN32)
  add_compile_definitions(WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
if(MINGW)
  # One file without a DLL beside it, and small: sections that nothing uses go.
  add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-ffunction-sections;-fdata-sections>")
  # The same sources give the same bytes: no time of the build.
  add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
endif()

# What both mingw-w64 toolchain files share; they set the triple and the processor.

# The compilers come with two ways to make threads. `posix` has std::thread, which tests and companions use, and links a
# library that suspends threads and writes into their registers. Such calls beside a mouse hook look like malware to scanners,
# so Pointalk.exe, whose threads are the system's own, is built with `win32`.
set(POINTALK_THREADS posix CACHE STRING "posix or win32")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES POINTALK_THREADS)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${POINTALK_MINGW_TRIPLE}-gcc-${POINTALK_THREADS})
set(CMAKE_CXX_COMPILER ${POINTALK_MINGW_TRIPLE}-g++-${POINTALK_THREADS})
set(CMAKE_RC_COMPILER ${POINTALK_MINGW_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${POINTALK_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

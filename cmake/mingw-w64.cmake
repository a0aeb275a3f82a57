# Builds Windows programs on other systems with mingw-w64, and runs them with Wine. On Windows
# itself the native compiler serves. Of the compiler's two variants the one with Windows' own
# threads, which links no library of POSIX threads.
if(CMAKE_HOST_WIN32)
    return()
endif()

# x86_64, or i686 for 32-bit Windows.
set(KV_PROCESSOR x86_64 CACHE STRING "The processor that the programs are for")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KV_PROCESSOR)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KV_PROCESSOR})
set(CMAKE_C_COMPILER ${KV_PROCESSOR}-w64-mingw32-gcc-win32)
set(CMAKE_CXX_COMPILER ${KV_PROCESSOR}-w64-mingw32-g++-win32)
set(CMAKE_RC_COMPILER ${KV_PROCESSOR}-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${KV_PROCESSOR}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)

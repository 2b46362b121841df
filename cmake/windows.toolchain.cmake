# The cross build for Windows with mingw-w64, on Debian: Qt and the other libraries are where
# scripts/windows/build-qt and build-libraries have put them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

if(NOT KEST_WINDOWS_CACHE)
    set(KEST_WINDOWS_CACHE "$ENV{KEST_WINDOWS_CACHE}")
endif()
if(NOT KEST_WINDOWS_CACHE)
    set(KEST_WINDOWS_CACHE "$ENV{HOME}/.cache/kest/windows")
endif()
set(KEST_WINDOWS_CACHE "${KEST_WINDOWS_CACHE}" CACHE PATH "Folder of Qt and other libraries for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KEST_WINDOWS_CACHE)

# The variant with POSIX threads, which has std::thread.
set(target x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)

set(CMAKE_FIND_ROOT_PATH "${KEST_WINDOWS_CACHE}/qt" "${KEST_WINDOWS_CACHE}/libraries" /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} "${KEST_WINDOWS_CACHE}/libraries/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")

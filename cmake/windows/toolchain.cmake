# Windows on 64-bit PCs, built with Debian's cross compiler; scripts/setup-windows.sh installs what this names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VXSIGN_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${VXSIGN_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VXSIGN_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${VXSIGN_TRIPLE}-windres)

# The cross compiler's own libraries, and those built for it; nothing of this machine but programs.
get_filename_component(VXSIGN_WINDOWS_DEPS ${CMAKE_CURRENT_LIST_DIR}/../../build/windows-deps ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH /usr/${VXSIGN_TRIPLE} ${VXSIGN_WINDOWS_DEPS}/prefix)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${VXSIGN_WINDOWS_DEPS}/prefix/lib/pkgconfig)
set(PKG_CONFIG_ARGN --static)

# Windows 10, from which on a program can have UTF-8 as its code page.
add_compile_definitions(_WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX PCRE2_STATIC)
# What is built needs nothing but what Windows brings, and the libraries for it are static.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh)

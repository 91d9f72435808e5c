# Cross-compiles for Windows x86-64 with MinGW-w64 (posix threads). Dependencies come only from the
# prefixes in CMAKE_PREFIX_PATH, never from the folders of the build system.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# Links the compiler's runtime libraries statically, as they are not installed on Windows.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

set(prefixes ${CMAKE_PREFIX_PATH})
if(NOT prefixes)
  file(TO_CMAKE_PATH "$ENV{CMAKE_PREFIX_PATH}" prefixes)
endif()
# Without prefixes nothing must be found. An empty list would search the build system's folders.
set(CMAKE_FIND_ROOT_PATH ${prefixes} ${CMAKE_CURRENT_LIST_DIR}/no-prefix)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Builds for Windows x86-64 with MinGW-w64 (posix threads) on another system. The dependencies come
# from the prefixes in CMAKE_PREFIX_PATH alone, never from the building system's own folders.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# The program runs where no compiler was ever installed, so it carries the compiler's libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

set(prefixes ${CMAKE_PREFIX_PATH})
if(NOT prefixes)
  file(TO_CMAKE_PATH "$ENV{CMAKE_PREFIX_PATH}" prefixes)
endif()
# Where there are none, nothing is found: an empty list would open the building system's folders.
set(CMAKE_FIND_ROOT_PATH ${prefixes} ${CMAKE_CURRENT_LIST_DIR}/no-prefix)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

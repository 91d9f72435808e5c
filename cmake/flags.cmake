# Compiler flags of our code. Each of our targets links morvane_warnings privately.
add_library(morvane_warnings INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(morvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${MORVANE_STRICT}>:-Werror>)
elseif(MSVC)
  target_compile_options(morvane_warnings INTERFACE /W4 /permissive- /utf-8
    $<$<BOOL:${MORVANE_STRICT}>:/WX>)
endif()

if(WIN32)
  # FLTK tests WIN32, which compilers do not define in strict mode, and silently uses its X11 code
  # without it. The others enable M_PI and disable the min and max macros.
  add_compile_definitions(WIN32 _USE_MATH_DEFINES NOMINMAX)
endif()

if(MORVANE_SANITIZE)
  add_compile_options(-fsanitize=${MORVANE_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${MORVANE_SANITIZE})
endif()

# morvane_room(NAME SOURCES ... LINKS ... PRIVATE_LINKS ...): makes the static library of a folder.
# Headers are included by their path from the project root.
function(morvane_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ROOM_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS} morvane_warnings)
endfunction()

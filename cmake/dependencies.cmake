# Finds all external libraries. They are used by their target names.
include(cmake/find_dependency.cmake)

# The libraries for Windows are static, so they do not name their own dependencies.
if(MINGW)
  set(CMAKE_FIND_LIBRARY_SUFFIXES .a .lib .dll.a)
endif()

set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)
find_package(OpenGL REQUIRED)
if(UNIX)
  find_package(OpenGL REQUIRED COMPONENTS EGL)  # pictures without a window
endif()

morvane_find(morvane_glew HEADER GL/glew.h LIBRARIES "GLEW|glew32s|libglew32|glew32|glew"
  PACKAGE GLEW TARGETS GLEW::glew_s GLEW::GLEW)
target_link_libraries(morvane_glew INTERFACE OpenGL::GL)

morvane_find(morvane_freetype HEADER ft2build.h SUFFIXES freetype2
  LIBRARIES "freetype|libfreetype" PACKAGE Freetype TARGETS Freetype::Freetype)

morvane_find(morvane_bullet HEADER btBulletDynamicsCommon.h SUFFIXES bullet
  LIBRARIES BulletDynamics BulletCollision LinearMath)

morvane_find(morvane_fftw HEADER fftw3.h LIBRARIES "fftw3|fftw3-3|libfftw3-3"
  PACKAGE FFTW3 TARGETS FFTW3::fftw3)

morvane_find(morvane_haru HEADER hpdf.h LIBRARIES "hpdf|hpdfs|libhpdf|libhpdfs"
  PACKAGE unofficial-libharu TARGETS unofficial::libharu::hpdf)

# FLTK's CMake config needs fluid, which distributions package separately.
morvane_find(morvane_fltk HEADER FL/Fl_Gl_Window.H LIBRARIES fltk_images fltk_gl fltk)
target_link_libraries(morvane_fltk INTERFACE OpenGL::GL)

# Header-only libraries: the headers of the build system also work for cross-compiling. Their folder
# must not be searched, as it has the other headers of that system too.
foreach(library "glm|glm/glm.hpp" "CLI|CLI/CLI.hpp")
  string(REGEX REPLACE "\\|.*" "" name ${library})
  string(REGEX REPLACE ".*\\|" "" header ${library})
  set(target morvane_${name})
  find_path(${target}_INCLUDE_FOLDER ${header})
  if(NOT ${target}_INCLUDE_FOLDER AND CMAKE_CROSSCOMPILING)
    find_path(HOST_${name}_INCLUDE_FOLDER ${header} NO_CMAKE_FIND_ROOT_PATH)
    if(HOST_${name}_INCLUDE_FOLDER)
      file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/host-headers)
      file(CREATE_LINK ${HOST_${name}_INCLUDE_FOLDER}/${name}
        ${PROJECT_BINARY_DIR}/host-headers/${name} SYMBOLIC)
      set(${target}_INCLUDE_FOLDER ${PROJECT_BINARY_DIR}/host-headers CACHE PATH "" FORCE)
    endif()
  endif()
  morvane_find(${target} HEADER ${header})
endforeach()

if(UNIX)
  find_package(JPEG REQUIRED)  # elsewhere the system writes JPEG and PNG files
  find_package(PNG REQUIRED)
  find_package(X11 REQUIRED)
  target_link_libraries(morvane_fltk INTERFACE X11::X11)
endif()
if(WIN32 AND NOT MORVANE_OBJECTS_ONLY)
  include(cmake/static_dependencies.cmake)
endif()

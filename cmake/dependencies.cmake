# Every outside library the program calls, found once and used by its target name.
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)
find_package(OpenGL REQUIRED)
find_package(GLEW REQUIRED)
find_package(Freetype REQUIRED)
find_package(glm REQUIRED)

# Bullet's config file hands out bare library names, so its parts are found one by one.
find_path(BULLET_INCLUDE_FOLDER btBulletDynamicsCommon.h PATH_SUFFIXES bullet REQUIRED)
add_library(morvane_bullet INTERFACE)
target_include_directories(morvane_bullet SYSTEM INTERFACE ${BULLET_INCLUDE_FOLDER})
foreach(library BulletDynamics BulletCollision LinearMath)
  find_library(BULLET_LIBRARY_${library} ${library} REQUIRED)
  target_link_libraries(morvane_bullet INTERFACE ${BULLET_LIBRARY_${library}})
endforeach()

# FFTW comes without a config file where its own build system made it, so it is found by header and
# library.
find_path(FFTW_INCLUDE_FOLDER fftw3.h REQUIRED)
find_library(FFTW_LIBRARY fftw3 REQUIRED)
add_library(morvane_fftw INTERFACE)
target_include_directories(morvane_fftw SYSTEM INTERFACE ${FFTW_INCLUDE_FOLDER})
target_link_libraries(morvane_fftw INTERFACE ${FFTW_LIBRARY})

# libharu comes without a config file from most of its builds.
find_path(HARU_INCLUDE_FOLDER hpdf.h REQUIRED)
find_library(HARU_LIBRARY hpdf REQUIRED)
add_library(morvane_haru INTERFACE)
target_include_directories(morvane_haru SYSTEM INTERFACE ${HARU_INCLUDE_FOLDER})
target_link_libraries(morvane_haru INTERFACE ${HARU_LIBRARY})

# FLTK's own config file names a program that distributions pack separately, so it is found by
# header and libraries.
find_path(FLTK_INCLUDE_FOLDER FL/Fl_Gl_Window.H REQUIRED)
add_library(morvane_fltk INTERFACE)
target_include_directories(morvane_fltk SYSTEM INTERFACE ${FLTK_INCLUDE_FOLDER})
foreach(library fltk_images fltk_gl fltk)
  find_library(FLTK_LIBRARY_${library} ${library} REQUIRED)
  target_link_libraries(morvane_fltk INTERFACE ${FLTK_LIBRARY_${library}})
endforeach()
target_link_libraries(morvane_fltk INTERFACE OpenGL::GL)
if(UNIX)
  find_package(JPEG REQUIRED)  # elsewhere the system writes JPEG files
  find_package(X11 REQUIRED)
  target_link_libraries(morvane_fltk INTERFACE X11::X11)
endif()

# On Windows the libraries are linked statically. A static library does not name its dependencies,
# so they are listed here.
target_compile_definitions(morvane_glew INTERFACE GLEW_STATIC)

morvane_find(morvane_zlib HEADER zlib.h LIBRARIES "z|zlib|zlibstatic|zs|libz")
morvane_find(morvane_png HEADER png.h
  LIBRARIES "png|png16|libpng16|libpng16_static|libpng_static|libpng")
target_link_libraries(morvane_png INTERFACE morvane_zlib)
morvane_find(morvane_jpeg HEADER jpeglib.h LIBRARIES "jpeg|jpeg-static|libjpeg")

target_link_libraries(morvane_haru INTERFACE morvane_png)

# Compressed fonts and text shaping: only some builds of FreeType need these.
morvane_find(morvane_bzip2 OPTIONAL HEADER bzlib.h LIBRARIES "bz2|libbz2")
morvane_find(morvane_brotli OPTIONAL HEADER brotli/decode.h
  LIBRARIES "brotlidec|brotlidec-static" "brotlicommon|brotlicommon-static")
morvane_find(morvane_harfbuzz OPTIONAL HEADER hb.h SUFFIXES harfbuzz
  LIBRARIES "harfbuzz|libharfbuzz")
target_link_libraries(morvane_freetype INTERFACE
  morvane_harfbuzz morvane_png morvane_bzip2 morvane_brotli)

# FLTK has its own JPEG, PNG and zlib libraries unless it was built with others.
morvane_find(morvane_fltk_jpeg OPTIONAL HEADER FL/Fl.H LIBRARIES fltk_jpeg)
morvane_find(morvane_fltk_png OPTIONAL HEADER FL/Fl.H LIBRARIES fltk_png)
morvane_find(morvane_fltk_zlib OPTIONAL HEADER FL/Fl.H LIBRARIES fltk_z)
target_link_libraries(morvane_fltk INTERFACE
  morvane_fltk_jpeg morvane_fltk_png morvane_fltk_zlib morvane_jpeg morvane_png
  OpenGL::GLU comctl32 comdlg32 gdiplus gdi32 ole32 shell32 uuid winspool ws2_32)

# The Debian package: the program in /usr/lib, a launcher in /usr/bin, and for desktops and shells
# the desktop entry, the file type, the thumbnailer and the completion.
include(GNUInstallDirs)
set(program_folder lib/${package_name})
set(document_folder ${CMAKE_INSTALL_DATADIR}/doc/${package_name})
set(icon_folder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(art ${PROJECT_SOURCE_DIR}/resources)
set(made ${CMAKE_CURRENT_BINARY_DIR})

# A multi-line field of a control file: lines are indented, empty ones are a dot.
function(read_as_field variable file)
  file(READ ${file} text)
  string(STRIP "${text}" text)
  string(REGEX REPLACE "\n" "\n " text " ${text}")
  string(REGEX REPLACE "\n +\n" "\n .\n" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# Compressed without name and time, so that builds are reproducible.
function(pack_document source target)
  find_program(GZIP_PROGRAM gzip REQUIRED)
  execute_process(COMMAND ${GZIP_PROGRAM} -9nc ${source} OUTPUT_FILE ${target}
                  COMMAND_ERROR_IS_FATAL ANY)
endfunction()

string(TIMESTAMP year "%Y" UTC)
string(TIMESTAMP change_time "%a, %d %b %Y %H:%M:%S +0000" UTC)
read_as_field(font_licence ${package_folder}/licences/OFL-1.1.txt)
foreach(document copyright changelog ${package_name}.1)
  configure_file(debian/${document}.in ${made}/${document} @ONLY)
endforeach()
pack_document(${made}/changelog ${made}/changelog.gz)
pack_document(${made}/${package_name}.1 ${made}/${package_name}.1.gz)

install(PROGRAMS debian/launcher DESTINATION bin RENAME ${package_name})
install(FILES debian/${package_name}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES debian/${package_name}.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES debian/${package_name}.thumbnailer
        DESTINATION ${CMAKE_INSTALL_DATADIR}/thumbnailers)
install(FILES debian/${package_name}.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ${package_name})
install(FILES ${made}/copyright ${made}/changelog.gz DESTINATION ${document_folder})
install(FILES ${PROJECT_SOURCE_DIR}/THIRD_PARTY.md DESTINATION ${document_folder} OPTIONAL)
install(FILES ${made}/${package_name}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The same icon for the program and for its files.
foreach(use apps/${package_name} mimetypes/application-x-morvane-res)
  get_filename_component(folder ${use} DIRECTORY)
  get_filename_component(name ${use} NAME)
  install(FILES ${art}/Icons/MRV3ico.png DESTINATION ${icon_folder}/64x64/${folder}
          RENAME ${name}.png)
  install(FILES ${art}/art/MRV3ico.svg DESTINATION ${icon_folder}/scalable/${folder}
          RENAME ${name}.svg)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# They register the file type and the desktop entry. Every desktop has them.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "desktop-file-utils, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "The program shows the surface that a surface-topography instrument has
measured as a lit picture in space, coloured by height, with the results that
the instrument has stored in the file. It plots sections between two points,
filters by wavelength, drapes camera pictures over the surface, and saves a
page with picture and scale as PDF.")

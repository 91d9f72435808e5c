# For Windows: a zip to unpack anywhere, and an installer made from NSIS.template.in beside this file.
set(program_folder .)

install(FILES ${PROJECT_SOURCE_DIR}/THIRD_PARTY.md DESTINATION licences)
install(FILES ${package_folder}/licences/GPL-2.txt ${package_folder}/licences/OFL-1.1.txt
              ${package_folder}/licences/libraries.txt DESTINATION licences)

set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_PACKAGE_FILE_NAME ${package_name}-${CMAKE_PROJECT_VERSION}-windows-x86_64)
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Morvane Reader")
set(CPACK_STRIP_FILES ON)
# Read by cpack before each package: gives the installer a name of its own.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/file_names.cmake)

# cpack takes the installer's script from the first folder that has one of that name.
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_NSIS_PACKAGE_NAME "${product_name}")
set(CPACK_NSIS_DISPLAY_NAME "${product_name}")
set(CPACK_NSIS_MUI_ICON ${PROJECT_SOURCE_DIR}/app/windows/reader.ico)
set(CPACK_NSIS_MUI_UNIICON ${CPACK_NSIS_MUI_ICON})
# A 64-bit installer also runs on systems without 32-bit support (Wine). NSIS for Windows only makes
# 32-bit installers, which run on every Windows.
if(CMAKE_HOST_WIN32)
  set(CPACK_NSIS_DEFINES "Unicode true")
else()
  set(CPACK_NSIS_DEFINES "Target amd64-unicode")
endif()

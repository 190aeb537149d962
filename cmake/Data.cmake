# Where the program looks for its data and its driver modules: relative to its own folder, so that an installed tree can be moved.
include(GNUInstallDirs)
set(KO_DATA_FOLDER ${CMAKE_INSTALL_DATADIR}/${PROJECT_NAME})
cmake_path(SET from_program "${CMAKE_INSTALL_FULL_DATADIR}/${PROJECT_NAME}")
cmake_path(RELATIVE_PATH from_program BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}" OUTPUT_VARIABLE KO_DATA_FROM_PROGRAM)

set(KO_MODULE_FOLDER ${CMAKE_INSTALL_LIBDIR}/korvell-host/modules)
cmake_path(SET from_program "${CMAKE_INSTALL_FULL_LIBDIR}/korvell-host/modules")
cmake_path(RELATIVE_PATH from_program BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}"
  OUTPUT_VARIABLE KO_MODULES_FROM_PROGRAM)
# Modules are built into this folder.
set(KO_BUILT_MODULES ${PROJECT_BINARY_DIR}/modules)

# ko_link_data(FOLDER): makes programs built in this folder find the data of the source tree and the built modules.
function(ko_link_data folder)
  cmake_path(SET data NORMALIZE "${folder}/${KO_DATA_FROM_PROGRAM}")
  file(MAKE_DIRECTORY ${data})
  foreach(name strings help demo)
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${data}/${name} SYMBOLIC)
  endforeach()
  cmake_path(SET modules NORMALIZE "${folder}/${KO_MODULES_FROM_PROGRAM}")
  cmake_path(GET modules PARENT_PATH around)
  file(MAKE_DIRECTORY ${around} ${KO_BUILT_MODULES})
  file(CREATE_LINK ${KO_BUILT_MODULES} ${modules} SYMBOLIC)
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/packaging/org.korvell.Host-128.png ${data}/icon.png SYMBOLIC)
endfunction()

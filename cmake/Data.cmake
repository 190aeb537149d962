# Where the program looks for its data: relative to its own folder, so that an installed tree can be moved.
include(GNUInstallDirs)
set(KO_DATA_FOLDER ${CMAKE_INSTALL_DATADIR}/${PROJECT_NAME})
cmake_path(SET from_program "${CMAKE_INSTALL_FULL_DATADIR}/${PROJECT_NAME}")
cmake_path(RELATIVE_PATH from_program BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}" OUTPUT_VARIABLE KO_DATA_FROM_PROGRAM)

# ko_link_data(FOLDER): makes programs built in this folder find the data of the source tree.
function(ko_link_data folder)
  cmake_path(SET data NORMALIZE "${folder}/${KO_DATA_FROM_PROGRAM}")
  file(MAKE_DIRECTORY ${data})
  foreach(name strings help demo)
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${data}/${name} SYMBOLIC)
  endforeach()
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/packaging/org.korvell.Host-128.png ${data}/icon.png SYMBOLIC)
endfunction()

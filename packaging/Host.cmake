# The reference host: the program, its data, and what a desktop and a shell know of it.
set(host_id org.korvell.Host)

cmake_path(SET libraries "${CMAKE_INSTALL_FULL_LIBDIR}")
cmake_path(RELATIVE_PATH libraries BASE_DIRECTORY "${CMAKE_INSTALL_FULL_BINDIR}")
set_target_properties(korvell-host PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
install(TARGETS korvell-host RUNTIME COMPONENT host)

install(DIRECTORY strings demo DESTINATION ${KO_DATA_FOLDER} COMPONENT host)
install(FILES packaging/${host_id}-128.png RENAME icon.png DESTINATION ${KO_DATA_FOLDER} COMPONENT host)
install(DIRECTORY help DESTINATION ${KO_DATA_FOLDER} COMPONENT host OPTIONAL)

configure_file(packaging/korvell-host.1.in packaging/korvell-host.1 @ONLY)
configure_file(packaging/${host_id}.metainfo.xml.in packaging/${host_id}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/packaging/korvell-host.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT host)
install(FILES ${PROJECT_BINARY_DIR}/packaging/${host_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  COMPONENT host)
install(FILES packaging/${host_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT host)
install(FILES packaging/${host_id}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT host)
foreach(size 32 48 128)
  install(FILES packaging/${host_id}-${size}.png RENAME ${host_id}.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps COMPONENT host)
endforeach()

install(FILES packaging/completion.bash RENAME korvell-host
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT host)
install(FILES packaging/completion.zsh RENAME _korvell-host
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT host)

# Debian packages, one per component: run cpack -G DEB in the build folder.
set(CPACK_PACKAGE_VENDOR "The Korvell developers")
set(CPACK_PACKAGE_CONTACT "The Korvell developers <developers@korvell.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL lib dev)
if(KO_QT)
  list(APPEND CPACK_COMPONENTS_ALL host)
  if(KO_SIGROK)
    list(APPEND CPACK_COMPONENTS_ALL sigrok)
  endif()
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src/document)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/Debian.cmake)
set(library libkotimebaseeditor${KO_BINARY_VERSION})
set(same_version "${library} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

set(CPACK_DEBIAN_LIB_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIB_DESCRIPTION
  "The page edits sample and scan rates, start and stop of the
recording and triggering of a host's instruments.")
set(CPACK_DEBIAN_LIB_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libkotimebaseeditor-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
# Had the documents that are now in the development package.
set(CPACK_DEBIAN_DEV_PACKAGE_BREAKS "libkotimebaseeditor0 (<< 0.2)")
set(CPACK_DEBIAN_DEV_PACKAGE_REPLACES "libkotimebaseeditor0 (<< 0.2)")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${same_version}")
set(CPACK_COMPONENT_DEV_DESCRIPTION
  "Headers, the library of control models, the kit for driver modules,
a CMake package, and a host and a module as examples.")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS qt6-base-dev)
set(CPACK_DEBIAN_HOST_PACKAGE_NAME korvell-host)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION science)
set(CPACK_DEBIAN_HOST_PACKAGE_DEPENDS "${same_version}")
set(CPACK_DEBIAN_HOST_PACKAGE_RECOMMENDS qt6-wayland)
set(CPACK_COMPONENT_HOST_DESCRIPTION
  "Shows the page in a window, runs scripts on it, and reads and sets its
settings on the command line.")
set(CPACK_DEBIAN_SIGROK_PACKAGE_NAME korvell-host-sigrok)
set(CPACK_DEBIAN_SIGROK_PACKAGE_SECTION science)
set(CPACK_DEBIAN_SIGROK_PACKAGE_DEPENDS "korvell-host (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_COMPONENT_SIGROK_DESCRIPTION
  "A driver module for korvell-host: logic analyzers, oscilloscopes and
meters by libsigrok.")

include(CPack)

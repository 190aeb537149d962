# Files installed by `cmake --install`. Components: lib (the component), dev (headers and package for building a host),
# host (the program), sigrok (the driver module for libsigrok's devices).
include(CMakePackageConfigHelpers)

set(headers_folder ${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME})
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME})

# The component and the headers that a host includes: the interfaces, the class factory, the data of the page and of the
# dialogs, and the control models.
install(TARGETS KoTimebaseEditor ko_platform EXPORT ${PROJECT_NAME}Targets
  LIBRARY COMPONENT lib NAMELINK_COMPONENT dev
  ARCHIVE COMPONENT dev
  INCLUDES DESTINATION ${headers_folder})
install(DIRECTORY src/interfaces src/platform DESTINATION ${headers_folder} COMPONENT dev FILES_MATCHING PATTERN *.h)
foreach(header document/ClassFactory.h
    page/Drivers.h page/Figures.h page/LinePlan.h page/OfferAccount.h page/Page.h page/TriggerVars.h
    support/DialogForm.h support/Errors.h support/Geometry.h support/LocaleSettings.h support/Steps.h
    support/StringTable.h support/Support.h
    schedule/SetDateTime.h timebase/ShowOffers.h
    triggering/AdvancedTrig.h triggering/LineMap.h triggering/LineUse.h triggering/SelectChannel.h)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES src/${header} DESTINATION ${headers_folder}/${folder} COMPONENT dev)
endforeach()

install(FILES ${PROJECT_BINARY_DIR}/names/support/TextNumbers.h DESTINATION ${headers_folder}/support COMPONENT dev)

# What driver modules include and are linked to; `InstrumentModule.h` also needs Qt.
if(KO_QT)
  install(TARGETS ko_instrument_kit EXPORT ${PROJECT_NAME}Targets
    ARCHIVE COMPONENT dev
    INCLUDES DESTINATION ${headers_folder})
  foreach(header instruments/Acquisition.h instruments/Instrument.h instruments/InstrumentSettings.h
      instruments/KeptInstrument.h instruments/KeptViews.h instruments/ParameterTypes.h modules/InstrumentModule.h)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES host/${header} DESTINATION ${headers_folder}/host/${folder} COMPONENT dev)
  endforeach()
endif()

# find_package(KoTimebaseEditor)
write_basic_package_version_file(${PROJECT_NAME}ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(EXPORT ${PROJECT_NAME}Targets NAMESPACE ${PROJECT_NAME}:: FILE ${PROJECT_NAME}Config.cmake
  DESTINATION ${package_folder} COMPONENT dev)
install(FILES ${PROJECT_BINARY_DIR}/${PROJECT_NAME}ConfigVersion.cmake DESTINATION ${package_folder} COMPONENT dev)

# The library's package has no file of the same name in each version, so that two versions can be installed.
install(FILES LICENSE CHANGELOG.md README.md docs/ARCHITECTURE.md docs/UPGRADING.md docs/driver-in-an-hour.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)

if(KO_QT)
  include(packaging/Host.cmake)
endif()

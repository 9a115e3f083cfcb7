# Where things go: bin and share as usual, the bundle and the library that it shares with the program in a folder of
# their own, the filter where CUPS looks. Each component is a Debian package, see cmake/packages.cmake.

set(library_folder ${installed_bundle_folder}/lib)
set(bundle_folder ${installed_bundle_folder}/KalmoFeatures.plugin/Contents)
set(resources ${PROJECT_SOURCE_DIR}/resources)
# CUPS keeps its filters in lib/cups on every machine. With a prefix other than /usr give the absolute folder.
set(KALMO_CUPS_FILTER_FOLDER lib/cups/filter CACHE STRING "Where cupsd starts filters from")

install(TARGETS kalmoplatform
  LIBRARY DESTINATION ${library_folder} NAMELINK_SKIP COMPONENT desktop)
set_target_properties(kalmo-print PROPERTIES INSTALL_RPATH "$ORIGIN/../${library_folder}")
install(TARGETS kalmo-print RUNTIME COMPONENT desktop)
install(DIRECTORY ${bundle} DESTINATION ${installed_bundle_folder} COMPONENT desktop PATTERN "*.so" EXCLUDE)
set_target_properties(KalmoFeatures PROPERTIES INSTALL_RPATH "$ORIGIN/../../../lib")
install(TARGETS KalmoFeatures LIBRARY DESTINATION ${bundle_folder}/Linux COMPONENT desktop)
set_target_properties(OrvikCups PROPERTIES INSTALL_RPATH "$ORIGIN/../../../../../../lib")
install(TARGETS OrvikCups
  LIBRARY DESTINATION ${bundle_folder}/Resources/OrvikCups.plugin/Contents/Linux COMPONENT desktop)

# Desktops know the program by this name, see run_print_window.cpp.
set(desktop_name com.kalmo.print)
install(FILES ${resources}/kalmo-print.desktop RENAME ${desktop_name}.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
string(TIMESTAMP release_date "%Y-%m-%d" UTC)
configure_file(${resources}/kalmo-print.metainfo.xml.in ${CMAKE_BINARY_DIR}/kalmo-print.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/kalmo-print.metainfo.xml RENAME ${desktop_name}.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)
install(FILES ${resources}/kalmo-print/kalmo-print.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)

# The platform library finds it beside itself.
if(TARGET kalmo-contacts-eds)
  set_target_properties(kalmo-contacts-eds PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS kalmo-contacts-eds LIBRARY DESTINATION ${library_folder} COMPONENT eds)
endif()

install(TARGETS kalmo-ticket RUNTIME COMPONENT server)
install(TARGETS kalmoticket RUNTIME DESTINATION ${KALMO_CUPS_FILTER_FOLDER} COMPONENT server)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/printers/ DESTINATION ${CMAKE_INSTALL_DATADIR}/ppd/kalmo
  COMPONENT server FILES_MATCHING PATTERN "*.ppd")

# kalmo_manual(COMPONENT NAME.SECTION): a page of man/, compressed as manuals are.
function(kalmo_manual COMPONENT PAGE)
  compress(${PROJECT_SOURCE_DIR}/man/${PAGE} man/${PAGE})
  string(REGEX REPLACE ".*\\." "" section ${PAGE})
  install(FILES ${compressed_folder}/man/${PAGE}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section}
    COMPONENT ${COMPONENT})
endfunction()
kalmo_manual(desktop kalmo-print.1)
kalmo_manual(server kalmo-ticket.1)
kalmo_manual(server kalmoticket.7)

set(completions ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${PROJECT_SOURCE_DIR}/completions/kalmo-print DESTINATION ${completions} COMPONENT desktop)
install(FILES ${PROJECT_SOURCE_DIR}/completions/kalmo-ticket DESTINATION ${completions} COMPONENT server)

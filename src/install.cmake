# Where things go: bin and share as usual, the bundle and its library beside each other, the filter where CUPS looks.

set(bundle_folder ${installed_bundle_folder}/KalmoFeatures.plugin/Contents)

install(TARGETS kalmoplatform LIBRARY DESTINATION ${installed_bundle_folder} NAMELINK_SKIP)
# The platform library finds it beside itself.
if(TARGET kalmo-contacts-eds)
  set_target_properties(kalmo-contacts-eds PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS kalmo-contacts-eds LIBRARY DESTINATION ${installed_bundle_folder})
endif()
install(TARGETS kalmo-ticket RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS kalmoticket RUNTIME DESTINATION lib/cups/filter)
set_target_properties(kalmo-print PROPERTIES INSTALL_RPATH "$ORIGIN/../${installed_bundle_folder}")
install(TARGETS kalmo-print RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${bundle} DESTINATION ${installed_bundle_folder} PATTERN "*.so" EXCLUDE)
set_target_properties(KalmoFeatures PROPERTIES INSTALL_RPATH "$ORIGIN/../../..")
install(TARGETS KalmoFeatures LIBRARY DESTINATION ${bundle_folder}/Linux)
set_target_properties(OrvikCups PROPERTIES INSTALL_RPATH "$ORIGIN/../../../../../..")
install(TARGETS OrvikCups LIBRARY DESTINATION ${bundle_folder}/Resources/OrvikCups.plugin/Contents/Linux)
install(FILES ${PROJECT_SOURCE_DIR}/resources/kalmo-print.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/printers/ DESTINATION ${CMAKE_INSTALL_DATADIR}/ppd/kalmo
  FILES_MATCHING PATTERN "*.ppd")

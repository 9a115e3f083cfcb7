# The product in a made-up language: the tables of the pane in a copy of the bundle, which the program
# finds beside itself, and that of the print window in the program.

set(bundle ${CMAKE_BINARY_DIR}/KalmoFeatures.plugin)
set(made ${CMAKE_BINARY_DIR}/pseudo_language)
set(made_bundle ${made}/KalmoFeatures.plugin/Contents)
add_executable(write_pseudo_table pseudo_language/writer/main.cpp)
target_link_libraries(write_pseudo_table PRIVATE test_support)

add_custom_target(pseudo_bundle
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${bundle}/Contents/Resources ${made_bundle}/Resources
  COMMAND ${CMAKE_COMMAND} -E copy ${bundle}/Contents/Info.plist ${made_bundle}/Info.plist
  COMMAND ${CMAKE_COMMAND} -E create_symlink ${bundle}/Contents/Linux ${made_bundle}/Linux
  COMMENT "Copying the bundle for the made-up language" VERBATIM)
add_dependencies(pseudo_bundle KalmoFeatures bundle_resources)
foreach(table Localizable LANFax)
  add_custom_command(TARGET pseudo_bundle POST_BUILD VERBATIM COMMAND write_pseudo_table
    ${bundle}/Contents/Resources/en.lproj/${table}.strings ${made_bundle}/Resources/qps.lproj/${table}.strings)
endforeach()

set(window_table ${made}/qps.lproj/Window.strings)
set(english_window_table ${PROJECT_SOURCE_DIR}/resources/kalmo-print/en.lproj/Window.strings)
add_custom_command(OUTPUT ${window_table} DEPENDS ${english_window_table} VERBATIM
  COMMAND write_pseudo_table ${english_window_table} ${window_table})

kalmo_tests(pseudo_language pseudo_language QT LINKS print_dialog settings DEPENDS pseudo_bundle)
set_target_properties(pseudo_language_tests PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${made}/bin)
qt_add_resources(pseudo_language_tests made_up_language PREFIX /kalmo-print BASE ${made} FILES ${window_table})

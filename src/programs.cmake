# The plug-in, the programs, the bundle around the plug-in, and the module for the desktop's address book.

set(bundle ${CMAKE_BINARY_DIR}/KalmoFeatures.plugin)

# Static libraries would be left out of the module, since nobody calls a panel by name: all objects go in.
set(plugin_objects)
foreach(folder shell_base settings controls stock watermark job_notes special_pages fax image_options paper_output shell)
  get_target_property(type ${folder} TYPE)
  if(type STREQUAL "STATIC_LIBRARY")
    list(APPEND plugin_objects $<TARGET_OBJECTS:${folder}>)
  endif()
endforeach()
set(exports ${CMAKE_CURRENT_SOURCE_DIR}/shell/exports.map)
add_library(KalmoFeatures SHARED ${plugin_objects})
set_target_properties(KalmoFeatures PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${bundle}/Contents/Linux
  LINK_DEPENDS ${exports})
target_link_libraries(KalmoFeatures PRIVATE kalmoplatform Cups::Cups)
# -Bsymbolic: a program built with -rdynamic must not replace the plug-in's own functions.
target_link_options(KalmoFeatures PRIVATE -Wl,-Bsymbolic -Wl,--version-script=${exports}
  $<$<NOT:$<BOOL:${KALMO_SANITIZE}>>:-Wl,-z,defs>)

# The localizer inside the bundle.
add_library(OrvikCups MODULE localizer/orvik_cups.cpp)
set_target_properties(OrvikCups PROPERTIES PREFIX ""
  LIBRARY_OUTPUT_DIRECTORY ${bundle}/Contents/Resources/OrvikCups.plugin/Contents/Linux)
target_link_libraries(OrvikCups PRIVATE kalmoplatform)
add_dependencies(KalmoFeatures OrvikCups)

# The desktop's address book, where its library is. A module of its own that is loaded when somebody asks for
# it: the program neither needs the desktop's libraries nor brings them into the memory of those who do not.
if(EBOOK_FOUND)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/platform/contacts/eds/*.cpp)
  add_library(kalmo-contacts-eds MODULE ${sources})
  set_target_properties(kalmo-contacts-eds PROPERTIES PREFIX "")
  target_link_libraries(kalmo-contacts-eds PRIVATE kalmoplatform PkgConfig::EBOOK)
else()
  message(STATUS "No libebook-1.2: without the address book of GNOME desktops")
endif()

add_executable(kalmo-print print_dialog/main.cpp)
target_link_libraries(kalmo-print PRIVATE print_dialog)
add_dependencies(kalmo-print KalmoFeatures bundle_resources)
if(TARGET kalmo-contacts-eds)
  add_dependencies(kalmo-print kalmo-contacts-eds)
endif()

# kalmo-ticket is for people and for drivers, kalmoticket is the CUPS filter.
add_executable(kalmo-ticket ticket_filter/main.cpp)
target_link_libraries(kalmo-ticket PRIVATE job_ticket CLI11::CLI11)
target_compile_definitions(kalmo-ticket PRIVATE KALMO_VERSION="${PROJECT_VERSION}")
add_executable(kalmoticket ticket_filter/cups_filter.cpp ticket_filter/temporary_folder.cpp)
target_link_libraries(kalmoticket PRIVATE job_ticket Cups::Cups)

# Debian packages by `cpack` in the build folder, one for each component of src/install.cmake.

set(KALMO_MAINTAINER "Kalmo print features maintainers <maintainers@kalmo-print.example>" CACHE STRING
  "Whom the Debian packages name as maintainer")

# package_documents(COMPONENT PACKAGE): what Debian wants to see in the package's folder of documents.
function(package_documents COMPONENT PACKAGE)
  set(folder ${CMAKE_BINARY_DIR}/packaging/${PACKAGE})
  string(TIMESTAMP changelog_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  configure_file(packaging/copyright.in ${folder}/copyright @ONLY)
  configure_file(packaging/changelog.in ${folder}/changelog.Debian @ONLY)
  compress(${folder}/changelog.Debian ${PACKAGE}/changelog.Debian)
  compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PACKAGE}/changelog)
  install(FILES ${folder}/copyright ${compressed_folder}/${PACKAGE}/changelog.gz
    ${compressed_folder}/${PACKAGE}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${PACKAGE} COMPONENT ${COMPONENT})
  if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/${PACKAGE}.lintian-overrides)
    install(FILES packaging/${PACKAGE}.lintian-overrides RENAME ${PACKAGE}
      DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${COMPONENT})
  endif()
endfunction()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kalmo-print)
set(CPACK_PACKAGE_CONTACT ${KALMO_MAINTAINER})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${KALMO_BUILD_NUMBER})
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The library that only these packages share.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(same_version "${PROJECT_VERSION}-${KALMO_BUILD_NUMBER}")

set(CPACK_COMPONENTS_ALL desktop server)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME kalmo-print)
# What is loaded at run time: pictures of the panes, a font. The picture formats are those a watermark may have.
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS
  "libqt6svg6, qt6-image-formats-plugins, fonts-dejavu-core | fonts-liberation2 | fonts-noto-core")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS "qt6-wayland, qt6-translations-l10n, fonts-droid-fallback | fonts-noto-cjk")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS "kalmo-print-eds, kalmo-print-server")
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "Print dialog for Kalmo office printers
kalmo-print shows a PDF document's sheets as they will be printed and offers
all that a Kalmo printer can do: secure, delayed and saved jobs, faxes,
finishing, booklets, covers, inserts and exception pages, watermarks and job
notes. It prints over CUPS or into a folder, with a window or from scripts.

The printer's server needs the package kalmo-print-server.")

set(CPACK_DEBIAN_SERVER_PACKAGE_NAME kalmo-print-server)
# pdftopdf of the core drivers stands before the filter.
set(CPACK_DEBIAN_SERVER_PACKAGE_DEPENDS "cups-daemon, cups-filters-core-drivers")
set(CPACK_DEBIAN_SERVER_PACKAGE_RECOMMENDS "cups")
set(CPACK_DEBIAN_SERVER_PACKAGE_ENHANCES "cups")
set(CPACK_DEBIAN_SERVER_DESCRIPTION "CUPS filter and printer descriptions for Kalmo office printers
The filter kalmoticket lets a job through only with the settings that
kalmo-print sent it with, and takes them out of the document; the program
kalmo-ticket does the same by hand or for a driver's own filters. The PPD
files of the printers are included.

Users choose those settings with the package kalmo-print.")

if(TARGET kalmo-contacts-eds)
  list(APPEND CPACK_COMPONENTS_ALL eds)
  set(CPACK_DEBIAN_EDS_PACKAGE_NAME kalmo-print-eds)
  set(CPACK_DEBIAN_EDS_PACKAGE_DEPENDS "kalmo-print (= ${same_version})")
  set(CPACK_DEBIAN_EDS_PACKAGE_ENHANCES "kalmo-print")
  set(CPACK_DEBIAN_EDS_DESCRIPTION "Print dialog for Kalmo office printers: the desktop's address book
With this module kalmo-print takes the recipients of a fax from the address
book of GNOME desktops (Evolution Data Server). Without it kalmo-print uses
its own folder of vCard files.")
endif()

foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  package_documents(${component} ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
endforeach()
include(CPack)

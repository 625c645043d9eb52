# The Debian packages: one for each program.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR Quillmark)
set(CPACK_PACKAGE_CONTACT "Quillmark developers <developers@quillmark.example>")
set(CPACK_COMPONENTS_ALL command desktop)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PACKAGE_RECOMMENDS ca-certificates)

set(about "It takes an inventory of the site's files, on this computer or on a web
host, reads the pages from one start file on, and reports which references
are invalid, which were ignored, which files nothing uses and which exist
twice. A check changes nothing in the site.")
set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME quillmark-check)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION web)
set(CPACK_DEBIAN_COMMAND_DESCRIPTION "checks a web site in the terminal and in CI jobs
${about}
.
This is the command; the package quillmark has the window.")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME quillmark)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SECTION web)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_SUGGESTS quillmark-check)
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "checks a web site for the person who keeps it
${about}
.
This is the window; the package quillmark-check has the command.")

# quillmark_documents(PACKAGE COMPONENT): what Debian asks of the documents of a package.
function(quillmark_documents PACKAGE COMPONENT)
  set(documents ${CMAKE_CURRENT_BINARY_DIR}/documents/${PACKAGE})
  set(package ${PACKAGE})
  configure_file(changelog.Debian.in ${documents}/changelog.Debian @ONLY)
  add_custom_command(OUTPUT ${documents}/changelog.gz
    COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/CHANGELOG.md > ${documents}/changelog.gz
    COMMAND ${GZIP} -9fnk ${documents}/changelog.Debian
    DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${documents}/changelog.Debian VERBATIM)
  add_custom_target(${PACKAGE}_documents ALL DEPENDS ${documents}/changelog.gz)
  install(FILES copyright ${documents}/changelog.gz ${documents}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${PACKAGE} COMPONENT ${COMPONENT})
endfunction()

quillmark_documents(quillmark-check command)
if(QUILLMARK_DESKTOP)
  quillmark_documents(quillmark desktop)
endif()

include(CPack)

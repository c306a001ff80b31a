# What an installed tree or a package holds besides library, headers and program: the examples, the
# notices, and in the package for Windows a page that tells what it is.
if(WIN32)
    set(documents .)
    configure_file(cmake/package/README.txt.in README.txt @ONLY NEWLINE_STYLE WIN32)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION ${documents})
else()
    set(documents ${CMAKE_INSTALL_DOCDIR})
endif()
install(DIRECTORY examples DESTINATION ${documents} PATTERN build EXCLUDE)

include(Notices)
camdata_install_notices(${documents}/third-party-notices)

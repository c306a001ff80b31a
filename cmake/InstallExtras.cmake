# What an installed tree or a package holds besides library, headers and program: the documents, the
# examples, the notices; on Linux the manual page and completions, in the package for Windows a page that tells
# what it is.
if(WIN32)
    set(documents .)
    configure_file(cmake/package/README.txt.in README.txt @ONLY NEWLINE_STYLE WIN32)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION ${documents} COMPONENT tool)
else()
    set(documents ${CMAKE_INSTALL_DATADIR}/doc/camdata)
endif()
install(DIRECTORY examples docs DESTINATION ${documents} COMPONENT tool USE_SOURCE_PERMISSIONS
        PATTERN build EXCLUDE PATTERN Doxyfile EXCLUDE)
install(FILES README.md CHANGELOG.md DESTINATION ${documents} COMPONENT tool)

include(Notices)
camdata_install_notices(${documents}/third-party-notices)

# The licence of each package where Debian looks for it.
if(NOT WIN32)
    configure_file(cmake/package/copyright.in copyright @ONLY)
    foreach(component package IN ZIP_LISTS CAMDATA_COMPONENTS CAMDATA_PACKAGES)
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/copyright
                DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
    endforeach()

    file(RELATIVE_PATH CAMDATA_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    string(REGEX REPLACE "/$" "" CAMDATA_PREFIX_FROM_PC "${CAMDATA_PREFIX_FROM_PC}")
    foreach(name camdata camdata-dstv)
        configure_file(cmake/package/${name}.pc.in ${name}.pc @ONLY)
        install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
                DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
    endforeach()
endif()

if(TARGET camjob AND NOT CMAKE_CROSSCOMPILING AND NOT WIN32)
    set(description ${CMAKE_CURRENT_BINARY_DIR}/description)
    add_custom_command(
        OUTPUT ${description}/camjob.1 ${description}/camjob ${description}/_camjob
        COMMAND ${PROJECT_SOURCE_DIR}/cmake/package/describe-tool.sh $<TARGET_FILE:camjob> ${description}
        DEPENDS camjob ${PROJECT_SOURCE_DIR}/cmake/package/describe-tool.sh
        COMMENT "Manual page and completions")
    add_custom_target(camjob_description ALL DEPENDS ${description}/camjob.1)
    install(FILES ${description}/camjob.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
    install(FILES ${description}/camjob
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
    install(FILES ${description}/_camjob
            DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT tool)
endif()

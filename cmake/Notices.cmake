# camdata_install_notices(DESTINATION) installs the licences of everything that is linked or compiled into
# the library and the program: the texts that the Debian packages carry it with.
function(camdata_install_notices destination)
    get_property(packages GLOBAL PROPERTY CAMDATA_THIRD_PARTY_PACKAGES)
    if(MINGW)
        # The compiler's libraries and those of the system interface are linked statically.
        list(APPEND packages g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev)
    endif()
    foreach(package IN LISTS packages)
        set(notice /usr/share/doc/${package}/copyright)
        if(NOT EXISTS ${notice})
            message(STATUS "${notice} not found: an installed tree lacks this notice")
            continue()
        endif()
        install(FILES ${notice} DESTINATION ${destination} RENAME ${package}.txt COMPONENT tool)
    endforeach()
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/package/notices.txt DESTINATION ${destination}
            RENAME 00-overview.txt COMPONENT tool)
endfunction()

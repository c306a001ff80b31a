# camdata_module_version(TARGET VERSION DESCRIPTION) gives a shared library or program its file
# version, four numbers, which ModuleFileVersion() finds at run time: on Windows a version resource, elsewhere an
# ELF note (visible with readelf -n).
if(WIN32)
    enable_language(RC)
endif()

set(CAMDATA_MODULE_VERSION_TEMPLATES ${CMAKE_CURRENT_LIST_DIR})

function(camdata_module_version target version description)
    set(FILE_NAME "${target}${CMAKE_SHARED_LIBRARY_SUFFIX}")
    set(FILE_DESCRIPTION "${description}")
    set(FILE_VERSION "${version}")
    string(REPLACE "." ", " FILE_VERSION_NUMBERS "${version}")
    if(WIN32)
        set(generated ${target}.rc)
    else()
        set(generated ${target}Version.cpp)
        # A sanitizer would pad the note.
        set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${generated}
                                    PROPERTIES COMPILE_OPTIONS -fno-sanitize=address)
    endif()
    get_filename_component(extension ${generated} LAST_EXT)
    configure_file(${CAMDATA_MODULE_VERSION_TEMPLATES}/ModuleVersion${extension}.in
                   ${CMAKE_CURRENT_BINARY_DIR}/${generated} @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${generated})
endfunction()

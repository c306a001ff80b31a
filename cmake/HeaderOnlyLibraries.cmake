# Header-only libraries of the system, offered to native and cross builds alike: a cross build must
# not search /usr/include, so the one header folder is copied into the build tree.
#
# camdata_header_library(NAME FOLDER PACKAGE) makes the interface target third_party::NAME.
function(camdata_header_library name folder package)
    find_path(${name}_INCLUDE_DIR ${folder} PATHS /usr/include /usr/local/include
              NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ${name}_INCLUDE_DIR)
        message(FATAL_ERROR "${folder} not found: install the package ${package}")
    endif()
    file(COPY ${${name}_INCLUDE_DIR}/${folder} DESTINATION ${CMAKE_BINARY_DIR}/third_party/${name})
    add_library(third_party_${name} INTERFACE)
    add_library(third_party::${name} ALIAS third_party_${name})
    target_include_directories(third_party_${name} SYSTEM INTERFACE
        ${CMAKE_BINARY_DIR}/third_party/${name})
    set_property(GLOBAL APPEND PROPERTY CAMDATA_THIRD_PARTY_PACKAGES ${package})
endfunction()

camdata_header_library(CLI11 CLI libcli11-dev)
camdata_header_library(json nlohmann nlohmann-json3-dev)
camdata_header_library(tomlplusplus toml++ libtomlplusplus-dev)
camdata_header_library(fmt fmt libfmt-dev)
target_compile_definitions(third_party_fmt INTERFACE FMT_HEADER_ONLY=1)
target_compile_definitions(third_party_tomlplusplus INTERFACE TOML_HEADER_ONLY=1)

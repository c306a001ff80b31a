# Warnings and code generation of every target of this project, carried by one interface target.
add_library(camdata_compile_settings INTERFACE)
target_compile_features(camdata_compile_settings INTERFACE cxx_std_20)
if(MSVC)
    # Sources are UTF-8; the language as it stands, and the same bits as elsewhere.
    target_compile_options(camdata_compile_settings INTERFACE
        /W4 $<$<BOOL:${CAMDATA_WERROR}>:/WX> /utf-8 /permissive- /Zc:preprocessor /fp:precise)
else()
    target_compile_options(camdata_compile_settings INTERFACE
        -Wall -Wextra -Wconversion -Wshadow
        # GCC 12 warns of its own library wherever a literal and a string are added.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
        $<$<BOOL:${CAMDATA_WERROR}>:-Werror>
        # The same bits on every processor: no fused multiply-add behind the program's back.
        -ffp-contract=off
        # Calls of other modules go straight to their address, not through a table of jumps.
        $<$<NOT:$<PLATFORM_ID:Windows>>:-fno-plt>
        # __FILE__ in assertions is relative to the source tree.
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()
if(WIN32)
    target_compile_definitions(camdata_compile_settings INTERFACE
        UNICODE _UNICODE _WIN32_WINNT=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
endif()
if(MINGW)
    # Nothing but system DLLs to ship.
    target_link_options(camdata_compile_settings INTERFACE -static)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
if(WIN32)
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
else()
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
endif()
# Installed programs find the library beside them, wherever the installed tree is moved to.
set(CMAKE_INSTALL_RPATH $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

# What lines of the library and the NC reader are reached: optimised, they would be others. Threads count, too.
add_library(camdata_coverage INTERFACE)
if(CAMDATA_COVERAGE)
    target_compile_options(camdata_coverage INTERFACE --coverage -fprofile-update=atomic -O0)
    target_link_options(camdata_coverage INTERFACE --coverage)
endif()

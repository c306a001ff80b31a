# embed_texts(TARGET NAMESPACE NAME=FILE...) compiles text files into a target, each as
# `extern const std::string_view NAME` of the namespace. Their declarations stand in a header of the target's.
#
# Bytes instead of string literals: a literal may not be long, and no text of a file can end the array.
function(embed_texts target namespace)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedTexts.cpp)
    set(text "#include <string_view>\n\nnamespace ${namespace} {\n")
    foreach(entry IN LISTS ARGN)
        string(REGEX MATCH "^([^=]+)=(.+)$" entry "${entry}")
        set(name ${CMAKE_MATCH_1})
        set(file ${CMAKE_MATCH_2})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
        file(READ ${file} bytes HEX)
        string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
        string(APPEND text "\nstatic constexpr char k${name}Bytes[] = {${bytes}};\n"
                           "extern const std::string_view ${name};\n"
                           "const std::string_view ${name}(k${name}Bytes, sizeof k${name}Bytes);\n")
    endforeach()
    string(APPEND text "\n}  // namespace ${namespace}\n")
    file(CONFIGURE OUTPUT ${source} CONTENT "${text}" @ONLY)
    target_sources(${target} PRIVATE ${source})
endfunction()

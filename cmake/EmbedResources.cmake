# quillfen_embed_resources(target TYPE ID FILE [TYPE ID FILE ...])
# Compiles files into a program, where platform/Resources.h finds them by number and type.
function(quillfen_embed_resources target)
    set(generated ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.cpp)
    set(triples ${ARGN})
    set(dependencies "")
    set(index 0)
    list(LENGTH triples count)
    while(index LESS count)
        math(EXPR fileIndex "${index} + 2")
        list(GET triples ${fileIndex} file)
        get_filename_component(path ${file} ABSOLUTE)
        list(APPEND dependencies ${path})
        math(EXPR index "${index} + 3")
    endwhile()
    string(REPLACE ";" "|" encoded "${triples}")
    add_custom_command(
        OUTPUT ${generated}
        COMMAND ${CMAKE_COMMAND} -DOUTPUT=${generated} -DRESOURCES=${encoded} -DBASE=${CMAKE_CURRENT_SOURCE_DIR}
                -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/WriteResources.cmake
        DEPENDS ${dependencies} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/WriteResources.cmake
        COMMENT "Embedding the resources of ${target}"
        VERBATIM)
    target_sources(${target} PRIVATE ${generated})
endfunction()

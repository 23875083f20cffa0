# Installs the engine from BUILD into a new folder below it. Then, with only the installed files, configures, builds and
# runs the program beside this file and builds the game of the guide.
set(place ${BUILD}/install-test)
file(REMOVE_RECURSE ${place})

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}")
    endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${place}/installed)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/CMakeLists.txt ${CMAKE_CURRENT_LIST_DIR}/main.cpp DESTINATION ${place}/source)
file(COPY ${SOURCE}/examples/first_game DESTINATION ${place}/source)
run(${CMAKE_COMMAND} -S ${place}/source -B ${place}/build -DCMAKE_PREFIX_PATH=${place}/installed
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${place}/build)
run(${place}/build/ten_lines)

# The package must not name the source folder.
file(GLOB_RECURSE package_files ${place}/installed/*.cmake)
foreach(file ${package_files})
    file(READ ${file} text)
    string(FIND "${text}" "${SOURCE}" position)
    if(NOT position EQUAL -1)
        message(FATAL_ERROR "${file} names the source folder")
    endif()
endforeach()

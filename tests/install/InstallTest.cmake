# Installs the engine from BUILD into a fresh place below it, then configures, builds and runs the program beside this
# file against what was installed, from outside the source folder, and builds the game of the guide the same way.
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

# Nothing of this source folder may have been named in the package.
file(GLOB_RECURSE package_files ${place}/installed/*.cmake)
foreach(file ${package_files})
    file(READ ${file} text)
    string(FIND "${text}" "${SOURCE}" position)
    if(NOT position EQUAL -1)
        message(FATAL_ERROR "${file} names the source folder")
    endif()
endforeach()

# Run with -P: PELL_BINARY_DIR, HOST_SOURCE_DIR, README, SCRATCH_DIR, GENERATOR.
file(REMOVE_RECURSE "${SCRATCH_DIR}")
set(prefix "${SCRATCH_DIR}/prefix")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${PELL_BINARY_DIR}" --prefix "${prefix}")
run("${CMAKE_COMMAND}" -S "${HOST_SOURCE_DIR}" -B "${SCRATCH_DIR}/host" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}")
run("${CMAKE_COMMAND}" --build "${SCRATCH_DIR}/host")
run("${SCRATCH_DIR}/host/pell_host" "${prefix}")

# The README's host example, copied out of the README, must build as it stands.
file(READ "${README}" readme)
string(REGEX MATCH "## Using the library from a host.*" readme "${readme}")
string(REGEX MATCH "```cpp\n([^`]*)```" example "${readme}")
if(example STREQUAL "")
    message(FATAL_ERROR "no C++ example under \"Using the library from a host\" in ${README}")
endif()
set(example_dir "${SCRATCH_DIR}/readme_host")
file(WRITE "${example_dir}/main.cpp" "${CMAKE_MATCH_1}")
file(COPY "${HOST_SOURCE_DIR}/CMakeLists.txt" DESTINATION "${example_dir}")
run("${CMAKE_COMMAND}" -S "${example_dir}" -B "${example_dir}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}")
run("${CMAKE_COMMAND}" --build "${example_dir}/build")

# Run with -P: PELL_BINARY_DIR, HOST_SOURCE_DIR, SCRATCH_DIR, GENERATOR.
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

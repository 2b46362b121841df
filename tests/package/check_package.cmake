# Stops with an error as soon as one step fails; the consumer's output is the last thing printed.
function(step)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}: ${result}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

set(work $ENV{TMPDIR}/work)
set(prefix ${work}/prefix)
step(${CMAKE_COMMAND} --install ${BUILD_DIRECTORY} --prefix ${prefix} --component Runtime)
step(${CMAKE_COMMAND} --install ${BUILD_DIRECTORY} --prefix ${prefix} --component Development)
if(SANITIZERS)
    set(flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZERS})
endif()

# The tree is moved first: nothing in it may name the place it was installed to.
file(RENAME ${prefix} ${work}/moved)
step(${CMAKE_COMMAND} -S ${CONSUMER_DIRECTORY} -B ${work}/build -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${work}/moved ${flags})
step(${CMAKE_COMMAND} --build ${work}/build)
step(${work}/build/consumer)
message("consumer: ${output}")

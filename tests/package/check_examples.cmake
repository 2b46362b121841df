# Builds each example against the installed library, from the installed copy of its sources, and looks
# at what it prints. Stops with an error as soon as one step fails.
function(step)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}: ${result}\n${output}")
    endif()
endfunction()

# expect(RESULT OUTPUT ERROR COMMAND...): the command ends with this exit code, and prints exactly
# these texts.
function(expect expected_result expected_output expected_error)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error TIMEOUT 60)
    if(NOT result STREQUAL expected_result OR NOT output STREQUAL expected_output
            OR NOT error STREQUAL expected_error)
        message(FATAL_ERROR "${ARGN}: ${result}\n${output}\n${error}\nexpected: "
            "${expected_result}\n${expected_output}\n${expected_error}")
    endif()
endfunction()

set(work $ENV{TMPDIR}/work)
set(prefix ${work}/prefix)
foreach(component Runtime Development)
    step(${CMAKE_COMMAND} --install ${BUILD_DIRECTORY} --prefix ${prefix} --component ${component})
endforeach()
if(SANITIZERS)
    set(flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZERS})
endif()
set(examples ${prefix}/${DOC_DIRECTORY}/examples)
foreach(name minimal own-solver dialog)
    step(${CMAKE_COMMAND} -S ${examples}/${name} -B ${work}/${name} -G ${GENERATOR}
        -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${prefix} ${flags})
    step(${CMAKE_COMMAND} --build ${work}/${name})
endforeach()

set(minimal ${work}/minimal/minimal)
expect(0 "0 hello\n2 50\n" "" ${minimal} printf "hello\\n-*-percentage-*- 50\\nlost")
expect(1 "4 sorry\n" "" ${minimal} sh -c "echo '-*-error-*-sorry' >&2 && exit 3")
expect(2 "" "/no/such/program: execvp: No such file or directory\n" ${minimal} /no/such/program)
expect(2 "" "Usage: minimal PROGRAM [ARGUMENT...]\n" ${minimal})

set(solver ${examples}/own-solver/solver.sh)
set(expected "solving dipôle.nec\n")
foreach(number 1 2 3 4)
    math(EXPR percentage "${number} * 25")
    string(APPEND expected
        "iteration ${number} of 4, residual 1e-${number}\n    ${percentage} % done\n")
endforeach()
string(APPEND expected "Warning: the segments are long\n")
expect(0 "${expected}" "" ${work}/own-solver/own-solver ${solver} quiet)
expect(7 "Error: no licence\n" "" ${work}/own-solver/own-solver sh -c "echo no licence >&2 && exit 7")

set(dialog ${work}/dialog/dialog)
set(ENV{QT_LOGGING_RULES} "*=false") # the platform's own remarks
expect(0 "valid\n" "" ${dialog} --close sh -c "sleep 0.2 && echo '-*-total-percentage-*- 100'")
expect(0 "fault\n" "" ${dialog} --close sh -c "sleep 0.2 && echo '-*-total-percentage-*- 99'")
expect(2 "" "Usage: dialog [--close] PROGRAM [ARGUMENT...]\n" ${dialog})

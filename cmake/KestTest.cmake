# How tests are registered with CTest: each in a sandbox of its own (tests/support/sandboxed), so
# that the caller's environment plays no part.

# Under the sanitizers everything takes a multiple of its time.
set(KEST_TEST_SLOWNESS 1)
if(KEST_SANITIZERS OR KEST_COVERAGE)
    set(KEST_TEST_SLOWNESS 5)
endif()

# kest_add_test(name COMMAND ... [ENVIRONMENT NAME=value...] [TIMEOUT seconds]
#               [FUNCTION_TIMEOUT seconds]): the limits are for the whole program and for one of its
# test functions; who needs a longer one says why. With KEST_FULL_TESTS a function has ten minutes.
function(kest_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT;FUNCTION_TIMEOUT" "COMMAND;ENVIRONMENT")
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 180)
    endif()
    if(NOT ARG_FUNCTION_TIMEOUT)
        set(ARG_FUNCTION_TIMEOUT 60)
    endif()
    math(EXPR timeout "${ARG_TIMEOUT} * ${KEST_TEST_SLOWNESS}")
    math(EXPR function_timeout "${ARG_FUNCTION_TIMEOUT} * ${KEST_TEST_SLOWNESS} * 1000") # ms
    set(environment QTEST_FUNCTION_TIMEOUT=${function_timeout} ${ARG_ENVIRONMENT})
    if(UNIX)
        set(command ${PROJECT_SOURCE_DIR}/tests/support/sandboxed ${environment} ${ARG_COMMAND})
        add_test(NAME ${name} COMMAND ${command})
        # A line each for tests/faults: what is run, and how.
        list(JOIN command "\t" words)
        set_property(GLOBAL APPEND_STRING PROPERTY KEST_TEST_PROGRAMS
            "${name}\t${timeout}\t${CMAKE_CURRENT_BINARY_DIR}\t${words}\n")
    else()
        add_test(NAME ${name} COMMAND ${ARG_COMMAND})
        set_tests_properties(${name} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${environment}")
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout})
endfunction()

# kest_test(tst_X [SOURCES ...] [LIBRARIES ...] and what kest_add_test() takes): one QtTest
# executable tst_X.cpp.
function(kest_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT;FUNCTION_TIMEOUT"
        "SOURCES;LIBRARIES;ENVIRONMENT")
    add_executable(${name} ${name}.cpp ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} Qt5::Test)
    kest_strict(${name})
    kest_add_test(${name}
        COMMAND $<TARGET_FILE:${name}>
        ENVIRONMENT ${ARG_ENVIRONMENT}
        TIMEOUT "${ARG_TIMEOUT}"
        FUNCTION_TIMEOUT "${ARG_FUNCTION_TIMEOUT}")
endfunction()

# kest_test_on_display(name tst_X [and what kest_add_test() takes]): the executable once more, on a
# display, where there is a program to make one.
find_program(KEST_XVFB_RUN xvfb-run)
function(kest_test_on_display name test)
    cmake_parse_arguments(PARSE_ARGV 2 ARG "" "TIMEOUT;FUNCTION_TIMEOUT" "ENVIRONMENT")
    if(KEST_XVFB_RUN)
        kest_add_test(${name}
            COMMAND ${KEST_XVFB_RUN} -a -s "-screen 0 1400x1000x24" $<TARGET_FILE:${test}>
            ENVIRONMENT QT_QPA_PLATFORM=xcb ${ARG_ENVIRONMENT}
            TIMEOUT "${ARG_TIMEOUT}"
            FUNCTION_TIMEOUT "${ARG_FUNCTION_TIMEOUT}")
    endif()
endfunction()

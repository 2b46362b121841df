# How tests are registered with CTest: each in a sandbox of its own (tests/support/sandboxed), so
# that the caller's environment plays no part.

# Under the sanitizers, everything takes a multiple of its time.
set(KEST_TEST_SLOWNESS 1)
if(KEST_SANITIZERS OR KEST_COVERAGE)
    set(KEST_TEST_SLOWNESS 5)
endif()

set(KEST_WINE_TIMEOUT 360 CACHE STRING "Seconds that a test may take under Wine, where much is slow")

# What a test needs, to choose tests by (ctest -L unit):
#   unit     nothing: it is quick, and starts no processes and opens no windows
#   process  starts other processes
#   window   opens windows, or needs a display for something else
#   hosts    needs network namespaces to play other hosts
#   slow     takes more than about five seconds on an idle machine
set(KEST_LABELS unit process window hosts slow)

# kest_label_test(name label...): sets the labels of a test. Each test has one at least.
function(kest_label_test name)
    if(NOT ARGN)
        message(FATAL_ERROR "${name} has no label: one or more of ${KEST_LABELS}")
    endif()
    foreach(label IN LISTS ARGN)
        if(NOT label IN_LIST KEST_LABELS)
            message(FATAL_ERROR "${name}: \"${label}\" is none of the labels ${KEST_LABELS}")
        endif()
    endforeach()
    if("unit" IN_LIST ARGN AND NOT "${ARGN}" STREQUAL unit)
        message(FATAL_ERROR "${name}: a unit test has no other label")
    endif()
    set_tests_properties(${name} PROPERTIES LABELS "${ARGN}")
    # What takes long begins first, or the last test runs alone.
    if("hosts" IN_LIST ARGN)
        set_tests_properties(${name} PROPERTIES COST 100)
    elseif("slow" IN_LIST ARGN)
        set_tests_properties(${name} PROPERTIES COST 10)
    endif()
endfunction()

# The reasons why tests are not there on Windows, or fail there: see the top of the file.
set(kest_windows_reasons)
if(WIN32)
    file(STRINGS ${PROJECT_SOURCE_DIR}/tests/windows/reasons.txt kest_windows_reasons REGEX "^[^#]")
endif()

# kest_is_absent(variable name): whether this system has no such test.
function(kest_is_absent variable name)
    string(REPLACE "." "[.]" pattern "${name}")
    set(rows ${kest_windows_reasons})
    list(FILTER rows INCLUDE REGEX "^${pattern} +absent ")
    if(rows)
        set(${variable} ON PARENT_SCOPE)
    else()
        set(${variable} OFF PARENT_SCOPE)
    endif()
endfunction()

# All that tests of a cross build need: other targets of the tests are not built.
if(WIN32)
    add_custom_target(kest_tests)
    set(KEST_WINE_PATH
        "${KEST_SUITE_BUILD_DIR}/bin:${KEST_WINDOWS_CACHE}/qt/bin:${KEST_WINDOWS_CACHE}/libraries/bin")
endif()

# kest_add_test(name COMMAND ... [LABELS label...] [ENVIRONMENT NAME=value...] [TIMEOUT seconds]
#               [FUNCTION_TIMEOUT seconds]): without labels, those in KEST_TEST_LABELS of the folder
# apply. The limits are for the whole program and for one of its test functions; who needs a longer
# one says why. With KEST_FULL_TESTS a function has ten minutes.
function(kest_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "QTEST" "TIMEOUT;FUNCTION_TIMEOUT"
        "COMMAND;ENVIRONMENT;LABELS")
    if(NOT ARG_LABELS)
        set(ARG_LABELS ${KEST_TEST_LABELS})
    endif()
    if("unit" IN_LIST ARG_LABELS)
        list(PREPEND ARG_ENVIRONMENT QT_QPA_PLATFORM=none) # ends whatever opens a window
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 180)
    endif()
    if(NOT ARG_FUNCTION_TIMEOUT)
        set(ARG_FUNCTION_TIMEOUT 60)
    endif()
    if(WIN32 AND CMAKE_CROSSCOMPILING)
        set(timeout ${KEST_WINE_TIMEOUT})
        math(EXPR function_timeout "${timeout} * 900") # ms
    else()
        math(EXPR timeout "${ARG_TIMEOUT} * ${KEST_TEST_SLOWNESS}")
        math(EXPR function_timeout "${ARG_FUNCTION_TIMEOUT} * ${KEST_TEST_SLOWNESS} * 1000") # ms
    endif()
    if(KEST_QT_MAJOR GREATER 5)
        # The watchdog of QtTest misses the short moment between two functions on a busy machine, and then
        # goes on with the time of the first. What is left prints the stack before the program is ended.
        math(EXPR function_timeout "${timeout} * 900") # ms
    endif()
    set(environment QTEST_FUNCTION_TIMEOUT=${function_timeout} ${ARG_ENVIRONMENT})
    if(UNIX)
        set(command ${PROJECT_SOURCE_DIR}/tests/support/sandboxed ${environment} ${ARG_COMMAND})
        add_test(NAME ${name} COMMAND ${command})
        # A line each for tests/faults: what is run, and how.
        list(JOIN command "\t" words)
        set_property(GLOBAL APPEND_STRING PROPERTY KEST_TEST_PROGRAMS
            "${name}\t${timeout}\t${CMAKE_CURRENT_BINARY_DIR}\t${words}\n")
    elseif(CMAKE_HOST_UNIX)
        if("LANG=de_DE.UTF-8" IN_LIST ARG_ENVIRONMENT) # which says nothing there
            list(APPEND environment KEST_LANGUAGE=de)
        endif()
        set(is_qtest)
        if(ARG_QTEST)
            set(is_qtest --qtest)
        endif()
        add_test(NAME ${name} COMMAND
            ${PROJECT_SOURCE_DIR}/tests/windows/under-wine ${is_qtest} ${environment} ${ARG_COMMAND})
        set_tests_properties(${name} PROPERTIES ENVIRONMENT
            "KEST_WINE_PREFIX=${PROJECT_BINARY_DIR}/wine;KEST_WINE_PATH=${KEST_WINE_PATH};KEST_TEST_LAUNCHER=${PROJECT_BINARY_DIR}/tests/windows/kest_test_launcher.exe")
    else()
        add_test(NAME ${name} COMMAND ${ARG_COMMAND})
        set_tests_properties(${name} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${environment}")
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout})
    kest_is_absent(is_absent ${name})
    set_tests_properties(${name} PROPERTIES DISABLED ${is_absent})
    kest_label_test(${name} ${ARG_LABELS})
endfunction()

# There are hundreds of test programs, and each runs for seconds: they are to be built quickly. They are
# not optimised, their debug information names lines only, and a quick linker puts them together.
set(KEST_TEST_COMPILE_OPTIONS $<$<CONFIG:RelWithDebInfo>:-O0> $<$<CONFIG:RelWithDebInfo>:-g1>)
if(WIN32)
    list(APPEND KEST_TEST_COMPILE_OPTIONS -O0)
endif()
find_program(KEST_LLD ld.lld)
if(KEST_BUILD_TESTS)
    find_package(Qt${KEST_QT_MAJOR} ${KEST_QT_MINIMUM} REQUIRED COMPONENTS Test)
endif()
if(KEST_PRECOMPILED_HEADERS AND KEST_BUILD_TESTS)
    kest_precompiled_headers(kest_precompiled_for_tests
        HEADERS <QtCore/QtCore>
        OPTIONS ${KEST_TEST_COMPILE_OPTIONS})
    if(KEST_QT_MAJOR EQUAL 5) # later, QtTest has a definition of its own for each folder
        kest_precompiled_headers(kest_precompiled_for_tests_of_widgets
            HEADERS <QtTest/QtTest> <QAction> <QApplication> <QComboBox> <QDialog> <QLineEdit> <QMainWindow>
                <QMessageBox> <QTableView> <QTextEdit> <QWidget>
            LIBRARIES Qt5::Test Qt5::Widgets
            OPTIONS ${KEST_TEST_COMPILE_OPTIONS})
    endif()
endif()

# kest_links_widgets(variable library...): whether what links these libraries links Qt's widgets with them.
function(kest_links_widgets variable)
    set(found OFF)
    foreach(library IN LISTS ARGN)
        if(library STREQUAL Qt${KEST_QT_MAJOR}::Widgets)
            set(found ON)
        elseif(TARGET ${library})
            get_target_property(libraries ${library} INTERFACE_LINK_LIBRARIES)
            kest_links_widgets(found ${libraries})
        endif()
        if(found)
            break()
        endif()
    endforeach()
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# kest_moc_in(target source): makes the file SOURCE.moc that the source includes. CMake's own AUTOMOC
# would compile one file more for each program.
function(kest_moc_in target source)
    get_filename_component(name ${source} NAME_WE)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_moc)
    set(QT_DEFAULT_MAJOR_VERSION ${KEST_QT_MAJOR})
    qt_generate_moc(${source} ${folder}/${name}.moc TARGET ${target})
    target_sources(${target} PRIVATE ${folder}/${name}.moc)
    target_include_directories(${target} PRIVATE ${folder})
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()

# kest_test(tst_X [SOURCES ...] [LIBRARIES ...] and what kest_add_test() takes): one QtTest
# executable tst_X.cpp.
function(kest_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "TIMEOUT;FUNCTION_TIMEOUT"
        "SOURCES;LIBRARIES;ENVIRONMENT;LABELS")
    add_executable(${name} ${name}.cpp ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} Qt${KEST_QT_MAJOR}::Test)
    target_compile_options(${name} PRIVATE ${KEST_TEST_COMPILE_OPTIONS})
    kest_links_widgets(has_widgets ${ARG_LIBRARIES})
    if(has_widgets AND KEST_QT_MAJOR EQUAL 5 AND NOT "Qt5::Network" IN_LIST ARG_LIBRARIES) # of which QtTest has more
        kest_strict(${name} PRECOMPILED_HEADERS kest_precompiled_for_tests_of_widgets)
    else()
        kest_strict(${name} PRECOMPILED_HEADERS kest_precompiled_for_tests)
    endif()
    kest_is_absent(is_absent ${name})
    if(WIN32 AND NOT is_absent)
        add_dependencies(kest_tests ${name})
    endif()
    if(KEST_LLD AND UNIX)
        target_link_options(${name} PRIVATE -fuse-ld=lld)
    endif()
    if(NOT ARG_SOURCES)
        kest_moc_in(${name} ${name}.cpp)
    endif()
    if(NOT ARG_LABELS)
        set(ARG_LABELS ${KEST_TEST_LABELS})
    endif()
    if("unit" IN_LIST ARG_LABELS) # tests/labels looks at these
        set_property(GLOBAL APPEND PROPERTY KEST_UNIT_SOURCES
            ${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp)
    endif()
    kest_add_test(${name} QTEST
        COMMAND $<TARGET_FILE:${name}>
        LABELS ${ARG_LABELS}
        ENVIRONMENT ${ARG_ENVIRONMENT}
        TIMEOUT "${ARG_TIMEOUT}"
        FUNCTION_TIMEOUT "${ARG_FUNCTION_TIMEOUT}")
endfunction()

# kest_trace_allocations(test...): what Qt's offscreen platform never gives back can only be told by
# where it was asked for, and to trace that takes the sanitizer long.
function(kest_trace_allocations)
    set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT "ASAN_OPTIONS=fast_unwind_on_malloc=0")
endfunction()

# kest_test_on_display(name tst_X [and what kest_add_test() takes]): the executable once more, on a
# display, where there is a program to make one. It is labelled as a window and a process, that of the
# display, unless labels are given. Without the address sanitizer's strict checks of strings: the
# library that reads the keyboard's layout (libxkbcommon-x11) does not pass them.
find_program(KEST_XVFB_RUN xvfb-run)
function(kest_test_on_display name test)
    cmake_parse_arguments(PARSE_ARGV 2 ARG "" "TIMEOUT;FUNCTION_TIMEOUT" "ENVIRONMENT;LABELS")
    if(NOT ARG_LABELS)
        set(ARG_LABELS process window)
    endif()
    # Mesa forgets some memory when Qt unloads it, which then belongs to no library that could be
    # named in a suppression.
    if(KEST_SANITIZERS AND NOT "${ARG_ENVIRONMENT}" MATCHES detect_leaks=0)
        list(APPEND ARG_ENVIRONMENT QT_XCB_GL_INTEGRATION=none)
    endif()
    if(KEST_XVFB_RUN AND UNIX)
        kest_add_test(${name}
            COMMAND ${KEST_XVFB_RUN} -a -s "-screen 0 1400x1000x24" $<TARGET_FILE:${test}>
            LABELS ${ARG_LABELS}
            ENVIRONMENT
                QT_QPA_PLATFORM=xcb
                ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1
                ${ARG_ENVIRONMENT}
            TIMEOUT "${ARG_TIMEOUT}"
            FUNCTION_TIMEOUT "${ARG_FUNCTION_TIMEOUT}")
    endif()
endfunction()

# Installs everything, moves it, and uses it from outside: the programs by their names, the libraries
# through CMake and through pkg-config. Stops with an error as soon as one step fails; the consumer's
# output is the last thing printed.
function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    set(result "${result}" PARENT_SCOPE)
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(step)
    run(${ARGV})
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}: ${result}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

set(work $ENV{TMPDIR}/work)
set(prefix ${work}/prefix)
step(${CMAKE_COMMAND} --install ${BUILD_DIRECTORY} --prefix ${prefix})
if(SANITIZERS)
    set(flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZERS})
endif()

# The tree is moved first: nothing in it may name the place it was installed to.
file(RENAME ${prefix} ${work}/moved)
string(REPLACE "," ";" programs "${PROGRAMS}")
foreach(program IN LISTS programs)
    step(${work}/moved/${PROGRAM_DIRECTORY}/${program} --version)
    if(NOT output MATCHES "^${program} ${VERSION}\n")
        message(FATAL_ERROR "${program} --version: ${output}")
    endif()
endforeach()

# The libraries have the version in their names, and ask for each other by the major one.
string(REGEX MATCH "^[0-9]+" major ${VERSION})
foreach(name IN ITEMS foundation binfiles common)
    set(library ${work}/moved/${LIBRARY_DIRECTORY}/libkest_${name}.so)
    file(REAL_PATH ${library} file)
    if(NOT file MATCHES "\\.so\\.${VERSION}$")
        message(FATAL_ERROR "${library} is ${file}")
    endif()
    step(readelf -d ${library})
    if(NOT output MATCHES "soname: \\[libkest_${name}\\.so\\.${major}\\]")
        message(FATAL_ERROR "${library} has another name inside:\n${output}")
    endif()
endforeach()

# find_package(KestCommon <request>) succeeds and brings the targets.
set(configure ${CMAKE_COMMAND} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_PREFIX_PATH=${work}/moved ${flags})
function(expect_found request targets)
    run(${configure} -S ${FIND_DIRECTORY} -B ${work}/find "-DREQUEST=${request}")
    if(NOT result EQUAL 0 OR NOT output MATCHES "-- found (1|TRUE), ${targets}\n")
        message(FATAL_ERROR "find_package(KestCommon ${request}) does not bring ${targets}:\n${output}")
    endif()
endfunction()

# find_package(KestCommon <request>) fails, and says why.
function(expect_refused request reason)
    run(${configure} -S ${FIND_DIRECTORY} -B ${work}/refused "-DREQUEST=${request}")
    string(REGEX REPLACE "[ \n]+" " " text "${output}")
    if(result EQUAL 0 OR NOT text MATCHES "${reason}")
        message(FATAL_ERROR "find_package(KestCommon ${request}) does not say \"${reason}\":\n${output}")
    endif()
endfunction()

set(all "kest::foundation;kest::binfiles;kest::common;QtCore;QtWidgets")
math(EXPR next "${major} + 1")
expect_found("${major} CONFIG REQUIRED" "optional : ${all}")
expect_found("${major}.0 REQUIRED COMPONENTS Foundation Binfiles Common" "optional : ${all}")
file(REMOVE_RECURSE ${work}/find)
expect_found("REQUIRED COMPONENTS Binfiles OPTIONAL_COMPONENTS Tables"
    "optional (0|FALSE|): kest::binfiles;QtCore")
expect_refused("REQUIRED COMPONENTS Common Tables"
    "has no component \"Tables\"; its components are Foundation, Binfiles, Common")
expect_refused("${next} REQUIRED" "version: ${VERSION}")
expect_refused("0.1 REQUIRED" "version: ${VERSION}")

step(${configure} -S ${CONSUMER_DIRECTORY} -B ${work}/build)
step(${CMAKE_COMMAND} --build ${work}/build)
step(${work}/build/locks)
if(EXISTS ${work}/moved/${INCLUDE_DIRECTORY}/kest/KEST_binfiles.h)
    message(FATAL_ERROR "who links kest::common alone finds KEST_binfiles.h, and cannot link it")
endif()

# What pkg-config says is enough to compile, beside what Qt itself wants.
set(ENV{PKG_CONFIG_PATH} ${work}/moved/${LIBRARY_DIRECTORY}/pkgconfig)
step(${PKG_CONFIG} --cflags --libs "kest-common >= ${major}" kest-binfiles)
string(STRIP "${output}" words)
separate_arguments(words UNIX_COMMAND "${words}")
if(SANITIZERS)
    list(APPEND words -fsanitize=${SANITIZERS})
endif()
step(${COMPILER} -std=c++17 -fPIC ${CONSUMER_DIRECTORY}/main.cpp -o ${work}/by_pkg_config ${words}
    -Wl,-rpath,${work}/moved/${LIBRARY_DIRECTORY})
step(${work}/by_pkg_config)
if(NOT output MATCHES "hello from the child")
    message(FATAL_ERROR "The consumer that pkg-config helped to compile says ${output}")
endif()
step(${work}/build/consumer)
message("consumer: ${output}")

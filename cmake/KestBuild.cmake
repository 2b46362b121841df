# What every target of this project is built with.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set_property(GLOBAL PROPERTY USE_FOLDERS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

# Installed programs find the libraries beside them, wherever the tree is moved to.
if(UNIX AND NOT APPLE)
    file(RELATIVE_PATH KEST_BIN_TO_LIB
        "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/${KEST_BIN_TO_LIB}")
endif()

if(KEST_SANITIZERS)
    add_compile_options(-fsanitize=${KEST_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KEST_SANITIZERS})
endif()
if(KEST_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# kest_strict(target [WITHOUT_PRECOMPILED_HEADERS | PRECOMPILED_HEADERS target]): warnings and Qt's
# strict string rules, for this project's own code only. Targets without Qt can have no precompiled
# headers; kest_precompiled are those of a target without compile options of its own.
function(kest_strict target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG WITHOUT_PRECOMPILED_HEADERS PRECOMPILED_HEADERS "")
    if(NOT ARG_PRECOMPILED_HEADERS)
        set(ARG_PRECOMPILED_HEADERS kest_precompiled)
    endif()
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${KEST_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
            $<$<BOOL:${KEST_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
        QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS
        QT_DISABLE_DEPRECATED_BEFORE=0x050e00)
    if(KEST_PRECOMPILED_HEADERS AND NOT ARG_WITHOUT_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${ARG_PRECOMPILED_HEADERS})
    endif()
endfunction()

# kest_precompiled_headers(target HEADERS <header>... [LIBRARIES ...] [OPTIONS ...]): headers that are compiled
# once with these options, for the sources that are compiled with them and use the same of Qt's libraries: half
# of the time of a build. Only what many use, for reading them takes time as well: with all of Qt Core, a source
# of the products takes a third longer. The presets without-samples and fuzz do without, so a source that forgets
# an include is found.
function(kest_precompiled_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "HEADERS;LIBRARIES;OPTIONS")
    set(source ${PROJECT_BINARY_DIR}/${target}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "")
    add_library(${target} OBJECT ${source})
    kest_strict(${target} WITHOUT_PRECOMPILED_HEADERS)
    target_compile_options(${target} PRIVATE ${ARG_OPTIONS})
    target_link_libraries(${target} PRIVATE Qt${KEST_QT_MAJOR}::Core ${ARG_LIBRARIES})
    target_precompile_headers(${target} PRIVATE ${ARG_HEADERS}
        <algorithm> <array> <functional> <memory> <optional> <utility> <vector>)
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()
if(KEST_PRECOMPILED_HEADERS)
    kest_precompiled_headers(kest_precompiled HEADERS
        <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QElapsedTimer> <QFile> <QFileInfo> <QHash> <QMap>
        <QObject> <QPointer> <QProcess> <QRegularExpression> <QSet> <QSettings> <QString> <QStringList>
        <QTextStream> <QTimer> <QVariant> <QVector>)
endif()

# kest_suite_program(target component): a program of the sample installation, in <build>/suite/bin, where
# it runs in place, and installed with that install component.
function(kest_suite_program target component)
    file(RELATIVE_PATH to_lib "/${KEST_SUITE_INSTALL_DIR}/bin" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY "${KEST_SUITE_BUILD_DIR}/bin"
        INSTALL_RPATH "$ORIGIN/${to_lib}")
    install(TARGETS ${target}
        RUNTIME DESTINATION ${KEST_SUITE_INSTALL_DIR}/bin COMPONENT ${component})
endfunction()

# kest_on_path(component program...): programs of the sample installation that users call by their names:
# links in the folder of programs, which hold wherever the whole is moved to. A program finds its
# installation from its own file.
function(kest_on_path component)
    if(NOT UNIX)
        return()
    endif()
    foreach(target IN LISTS ARGN)
        file(RELATIVE_PATH program
            "/${CMAKE_INSTALL_BINDIR}" "/${KEST_SUITE_INSTALL_DIR}/bin/${target}")
        set(link "${CMAKE_CURRENT_BINARY_DIR}/on-path/${target}")
        file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/on-path")
        file(CREATE_LINK "${program}" "${link}" SYMBOLIC)
        install(FILES "${link}" DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${component})
    endforeach()
endfunction()

# One shared library of the suite: kest_<name>, known as kest::<name>, with its export macro
# KEST_<NAME>_EXPORT in kest_<name>_export.h and its exported headers in <include_directory>. They are
# installed to include/kest, or to <install_directory> below it, for a library that kest::common does not
# link publicly: what can be included can then be linked. <name> is also a component of the installed
# package (cmake/KestPackage.cmake).
function(kest_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "INCLUDE_DIRECTORY;INSTALL_DIRECTORY" "SOURCES;PUBLIC_LIBRARIES")
    set(headers ${CMAKE_INSTALL_INCLUDEDIR}/kest)
    if(ARG_INSTALL_DIRECTORY)
        string(APPEND headers /${ARG_INSTALL_DIRECTORY})
    endif()
    set(target kest_${name})
    string(TOUPPER ${target} macro)
    add_library(${target} SHARED ${ARG_SOURCES})
    add_library(kest::${name} ALIAS ${target})

    include(GenerateExportHeader)
    set(export_header "${CMAKE_CURRENT_BINARY_DIR}/exported/${target}_export.h")
    generate_export_header(${target}
        BASE_NAME ${target}
        EXPORT_MACRO_NAME ${macro}_EXPORT
        EXPORT_FILE_NAME "${export_header}")

    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${ARG_INCLUDE_DIRECTORY}>
        $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/exported>
        $<INSTALL_INTERFACE:${headers}>)
    target_link_libraries(${target} PUBLIC ${ARG_PUBLIC_LIBRARIES})
    target_compile_features(${target} PUBLIC cxx_std_17)
    kest_strict(${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    if(WIN32) # beside the programs, where they find it
        set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${KEST_SUITE_BUILD_DIR}/bin")
    endif()

    install(TARGETS ${target} EXPORT KestCommon_${name}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime
            NAMELINK_COMPONENT Development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
    install(DIRECTORY "${ARG_INCLUDE_DIRECTORY}/"
        DESTINATION ${headers} COMPONENT Development
        FILES_MATCHING PATTERN "*.h")
    install(FILES "${export_header}"
        DESTINATION ${headers} COMPONENT Development)
endfunction()

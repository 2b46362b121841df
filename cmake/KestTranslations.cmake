# The texts of the applications in other languages than English. The translations are sources:
# apps/<name>/translations/<name>_<language>.ts, which scripts/translations keeps up to date.
if(CMAKE_CROSSCOMPILING) # the tool is this machine's own
    find_program(KEST_LRELEASE lrelease HINTS /usr/lib/qt${KEST_QT_MAJOR}/bin REQUIRED)
    add_executable(Qt${KEST_QT_MAJOR}::lrelease IMPORTED GLOBAL)
    set_target_properties(Qt${KEST_QT_MAJOR}::lrelease PROPERTIES IMPORTED_LOCATION "${KEST_LRELEASE}")
else()
    find_package(Qt${KEST_QT_MAJOR} ${KEST_QT_MINIMUM} REQUIRED COMPONENTS LinguistTools)
endif()

# kest_translations(target name...): compiles the translations of apps/<name> into the target, below
# :/translations, so that a program has them wherever it is moved to.
function(kest_translations target)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_translations)
    set(compiled)
    set(lines)
    foreach(name IN LISTS ARGN)
        file(GLOB sources CONFIGURE_DEPENDS
            "${PROJECT_SOURCE_DIR}/apps/${name}/translations/${name}_*.ts")
        foreach(source IN LISTS sources)
            get_filename_component(stem "${source}" NAME_WE)
            add_custom_command(OUTPUT "${folder}/${stem}.qm"
                COMMAND Qt${KEST_QT_MAJOR}::lrelease -silent "${source}" -qm "${folder}/${stem}.qm"
                DEPENDS "${source}"
                VERBATIM)
            list(APPEND compiled "${folder}/${stem}.qm")
            string(APPEND lines "<file>${stem}.qm</file>\n")
        endforeach()
    endforeach()
    set(resources "${folder}/translations.qrc")
    file(GENERATE OUTPUT "${resources}"
        CONTENT "<RCC><qresource prefix=\"/translations\">\n${lines}</qresource></RCC>\n")
    set(source "${folder}/translations.cpp")
    add_custom_command(OUTPUT "${source}"
        COMMAND Qt${KEST_QT_MAJOR}::rcc --name translations -o "${source}" "${resources}"
        DEPENDS "${resources}" ${compiled}
        VERBATIM)
    set_source_files_properties("${source}" PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE "${source}")
endfunction()

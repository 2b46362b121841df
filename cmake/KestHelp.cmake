# Manual pages, and completions for bash, zsh and fish, which are made from what the programs print for
# --help. Without Python, and for another system, there are none.

find_program(KEST_PYTHON python3)
set(KEST_PROGRAMS adaptkest amrkest cadkest editkest kestdesk kestmark optkest postkest prekest runkest)
set(KEST_HELP_DIR ${PROJECT_BINARY_DIR}/help)
file(MAKE_DIRECTORY ${KEST_HELP_DIR})

# Debian's zsh looks for what packages bring in a folder of its own.
set(KEST_ZSH_COMPLETION_NAME site-functions)
if(EXISTS /etc/debian_version)
    set(KEST_ZSH_COMPLETION_NAME vendor-completions)
endif()
set(KEST_ZSH_COMPLETION_DIR ${CMAKE_INSTALL_DATADIR}/zsh/${KEST_ZSH_COMPLETION_NAME} CACHE STRING
    "Where completions for zsh go, below the prefix")

# The day of the release, from the log of changes: a page that is made again is the same.
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md release REGEX "^## \\[${PROJECT_VERSION}\\] - ")
string(REGEX MATCH "[0-9]+-[0-9]+-[0-9]+$" KEST_RELEASE_DATE "${release}")
if(NOT KEST_RELEASE_DATE)
    message(FATAL_ERROR "CHANGELOG.md has no line \"## [${PROJECT_VERSION}] - DATE\"")
endif()

# kest_program_help(target component summary): the summary is what "whatis" shows. The completion of
# kestdesk for bash is written by hand: it also completes values.
function(kest_program_help target component summary)
    if(NOT KEST_PYTHON OR CMAKE_CROSSCOMPILING)
        return()
    endif()
    set(script ${PROJECT_SOURCE_DIR}/packaging/help)
    set(made ${KEST_HELP_DIR}/${target}.1 ${KEST_HELP_DIR}/${target}.bash
        ${KEST_HELP_DIR}/_${target} ${KEST_HELP_DIR}/${target}.fish)
    list(JOIN KEST_PROGRAMS "," others)
    add_custom_command(OUTPUT ${made}
        COMMAND ${KEST_PYTHON} ${script}/make-help $<TARGET_FILE:${target}> ${summary}
            ${KEST_HELP_DIR} ${PROJECT_VERSION} ${KEST_RELEASE_DATE} ${others}
        DEPENDS ${target} ${script}/make-help ${script}/completions.py ${script}/manual_page.py
            ${script}/program_help.py
        VERBATIM)
    add_custom_target(kest_help_${target} ALL DEPENDS ${made})

    install(FILES ${KEST_HELP_DIR}/${target}.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
    set(bash ${KEST_HELP_DIR}/${target}.bash)
    if(target STREQUAL kestdesk)
        set(bash ${PROJECT_SOURCE_DIR}/apps/kestdesk/kestdesk.bash-completion)
    endif()
    install(FILES ${bash}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME ${target} COMPONENT ${component})
    install(FILES ${KEST_HELP_DIR}/_${target}
        DESTINATION ${KEST_ZSH_COMPLETION_DIR} COMPONENT ${component})
    install(FILES ${KEST_HELP_DIR}/${target}.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT ${component})
endfunction()

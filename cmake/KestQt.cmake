# Which Qt everything is built with: one of the two major versions, never both in one build tree.

set(KEST_QT_MINIMUM_5 5.15.2)
set(KEST_QT_MINIMUM_6 6.4)
if(NOT DEFINED KEST_QT_MINIMUM_${KEST_QT_MAJOR})
    message(FATAL_ERROR "KEST_QT_MAJOR is \"${KEST_QT_MAJOR}\": it must be 5 or 6")
endif()
set(KEST_QT_MINIMUM ${KEST_QT_MINIMUM_${KEST_QT_MAJOR}})
find_package(Qt${KEST_QT_MAJOR} ${KEST_QT_MINIMUM} REQUIRED COMPONENTS Widgets)

# The process dialog and the output views in it.
foreach(class
        common_KestProcessDialog
        common_KestProcessDialogRuns
        common_KestProcessOutputTabWidget
        common_KestProcessOutputTableWidget)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

# Not exported, so compiled in.
kest_test(tst_common_EndOfTurn
    SOURCES ${PROJECT_SOURCE_DIR}/src/process/widgets/common_EndOfTurn.cpp
    LIBRARIES Qt5::Core)
target_include_directories(tst_common_EndOfTurn PRIVATE
    ${PROJECT_SOURCE_DIR}/src/process/widgets)

# As on screens with few and with many pixels.
foreach(scale 0.5 3.0)
    foreach(class common_KestProcessDialog common_KestProcessOutputTabWidget)
        add_test(NAME tst_${class}_scaled_${scale} COMMAND tst_${class})
        set_tests_properties(tst_${class}_scaled_${scale} PROPERTIES
            TIMEOUT 300
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=${scale}")
    endforeach()
endforeach()

# The process dialog and the output views in it.
foreach(class
        common_KestProcessDialog
        common_KestProcessDialogRuns
        common_KestProcessOutputTabWidget)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

# Makes every row of very large tables as high as its text, and compares with Qt's own way.
kest_test(tst_common_KestProcessOutputTableWidget
    LIBRARIES kest::common kest_test_support
    TIMEOUT 400
    FUNCTION_TIMEOUT 180)

# Not exported, so compiled in.
kest_test(tst_common_EndOfTurn
    SOURCES ${PROJECT_SOURCE_DIR}/src/process/widgets/common_EndOfTurn.cpp
    LIBRARIES Qt5::Core)
target_include_directories(tst_common_EndOfTurn PRIVATE
    ${PROJECT_SOURCE_DIR}/src/process/widgets)

# As on screens with few and with many pixels.
foreach(scale 0.5 3.0)
    foreach(class common_KestProcessDialog common_KestProcessOutputTabWidget)
        kest_add_test(tst_${class}_scaled_${scale}
            COMMAND $<TARGET_FILE:tst_${class}>
            ENVIRONMENT QT_SCALE_FACTOR=${scale})
    endforeach()
endforeach()

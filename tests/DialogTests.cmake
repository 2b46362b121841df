# The process dialog and the output views in it.
foreach(class
        common_KestProcessDialog
        common_KestProcessDialogRuns
        common_KestProcessOutputTabWidget)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

# Looks whether an address is connected to.
find_package(Qt5 5.15 REQUIRED COMPONENTS Network)
target_link_libraries(tst_common_KestProcessOutputTabWidget PRIVATE Qt5::Network)

# Makes every row of very large tables as high as its text, and compares with Qt's own way.
kest_test(tst_common_KestProcessOutputTableWidget
    LIBRARIES kest::common kest_test_support
    TIMEOUT 400
    FUNCTION_TIMEOUT 180)

# Not exported, so compiled in.
set(widgets ${PROJECT_SOURCE_DIR}/src/process/widgets)
kest_test(tst_common_EndOfTurn
    SOURCES ${widgets}/common_EndOfTurn.cpp
    LIBRARIES Qt5::Core)
kest_test(tst_common_BlockHeights
    SOURCES ${widgets}/common_BlockHeights.cpp
    LIBRARIES Qt5::Core)
kest_test(tst_common_KestProcessOutputLayout
    SOURCES
        ${widgets}/common_BlockHeights.cpp
        ${widgets}/common_KestProcessOutputLayout.cpp
    LIBRARIES Qt5::Widgets)
kest_test(tst_common_MarkupReader
    SOURCES
        ${widgets}/common_MarkupElement.cpp
        ${widgets}/common_MarkupEntity.cpp
        ${widgets}/common_MarkupFormats.cpp
        ${widgets}/common_MarkupLines.cpp
        ${widgets}/common_MarkupReader.cpp
        ${widgets}/common_MarkupScanner.cpp
    LIBRARIES Qt5::Gui)
foreach(class
        common_EndOfTurn
        common_BlockHeights
        common_KestProcessOutputLayout
        common_MarkupReader)
    target_include_directories(tst_${class} PRIVATE ${widgets})
endforeach()

# As on screens with few and with many pixels.
foreach(scale 0.5 3.0)
    foreach(class common_KestProcessDialog common_KestProcessOutputTabWidget)
        kest_add_test(tst_${class}_scaled_${scale}
            COMMAND $<TARGET_FILE:tst_${class}>
            ENVIRONMENT QT_SCALE_FACTOR=${scale})
    endforeach()
endforeach()

# As on a display where nobody manages windows and the clipboard has no owner.
foreach(class common_KestProcessDialog common_KestProcessDialogRuns)
    kest_test_on_display(tst_${class}_on_display tst_${class})
endforeach()

# In short: by itself it takes the numbers that are asked for (scripts/soak).
add_executable(kest_soak soak/soak.cpp)
target_link_libraries(kest_soak PRIVATE kest::common kest_test_support)
kest_strict(kest_soak)
kest_add_test(soak_in_short
    COMMAND $<TARGET_FILE:kest_soak> --runs 40 --at-once 10 --lines 50000
    TIMEOUT 300)

# The settings objects, and what they are read from and made into.
foreach(class
        common_3DMouseOptions
        common_CommonSettingsSet
        common_ComponentsCommandLines
        common_ComponentsLaunchOptions
        common_geometry_settings
        common_recent_file_settings)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

# Not exported, so compiled in.
set(options ${PROJECT_SOURCE_DIR}/src/settings/option)
kest_test(tst_common_LaunchOptionTable
    SOURCES ${options}/common_LaunchOptionTable.cpp
    LIBRARIES kest::common kest_test_support)
target_include_directories(tst_common_LaunchOptionTable PRIVATE ${options})

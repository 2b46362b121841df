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

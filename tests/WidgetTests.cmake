# The widgets and boxes that applications embed or show.
foreach(class
        common_InitialRenderingSettingsDialog
        common_RenderingSettingsWidget)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

# Compares with the pictures, and makes them anew: see the top of its source.
kest_test(tst_rendering_pictures LIBRARIES kest::common kest_test_support)
target_compile_definitions(tst_rendering_pictures PRIVATE
    KEST_PICTURES="${CMAKE_CURRENT_SOURCE_DIR}/pictures")

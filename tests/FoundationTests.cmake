# The tests of the foundation, of the locks and of the settings base.

# Plays the other processes that use the same settings files.
add_executable(kest_settings_process support/settings_process.cpp)
target_link_libraries(kest_settings_process PRIVATE
    kest::common kest::binfiles kest_test_support)
kest_strict(kest_settings_process)

add_library(kest_settings_test_support INTERFACE)
target_link_libraries(kest_settings_test_support INTERFACE
    kest::common kest::binfiles kest_test_support)
target_compile_definitions(kest_settings_test_support INTERFACE
    KEST_SETTINGS_PROCESS="$<TARGET_FILE:kest_settings_process>")
add_dependencies(kest_settings_test_support kest_settings_process)

foreach(class
        KEST_binfiles_portable
        common_LockFile
        common_LockFileStatus
        common_Label
        common_Property
        common_PropertyContainer
        common_PropertyFactory
        common_PropertyMetaData
        common_ServiceOf
        common_UserMessage
        common_UserQuery)
    kest_test(tst_${class} LIBRARIES kest_settings_test_support)
endforeach()

# Some functions repeat themselves for long with KEST_FULL_TESTS.
foreach(test tst_KEST_binfiles tst_settings_processes)
    kest_test(${test} LIBRARIES kest_settings_test_support kest_platform TIMEOUT 900)
endforeach()
kest_test(tst_common_settings LIBRARIES kest_settings_test_support TIMEOUT 900)
set_tests_properties(tst_settings_processes tst_KEST_binfiles PROPERTIES PROCESSORS 2)

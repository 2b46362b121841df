# Preparing runs, and starting the suite's other applications.
foreach(class
        common_KestGuiLauncher
        common_MachineFileFinder
        common_RunWrapper)
    kest_test(tst_${class} LIBRARIES kest::common kest_test_support)
endforeach()

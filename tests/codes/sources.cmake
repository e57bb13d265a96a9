list(APPEND LORVAN_CORE_TESTS
    codes/code_catalogue_test.cpp
    codes/code_maintenance_test.cpp
    codes/group_maintenance_test.cpp)

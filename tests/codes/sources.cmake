list(APPEND LORVAN_CORE_TESTS
    codes/code_catalogue_test.cpp)

list(APPEND LORVAN_CORE_TESTS
    cashbook/random_changes_test.cpp)

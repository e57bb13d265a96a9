list(APPEND LORVAN_CORE_TESTS
    cashbook/kill_test.cpp
    cashbook/random_changes_test.cpp)

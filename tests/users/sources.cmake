list(APPEND LORVAN_CORE_TESTS
    users/sign_in_test.cpp)

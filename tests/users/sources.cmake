list(APPEND LORVAN_CORE_TESTS
    users/administration_test.cpp
    users/sign_in_test.cpp)

list(APPEND LORVAN_CORE_TESTS
    users/administration_kill_test.cpp
    users/administration_test.cpp
    users/sign_in_test.cpp)

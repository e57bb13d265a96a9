list(APPEND LORVAN_CORE_TESTS
    app/marker_contention_test.cpp)

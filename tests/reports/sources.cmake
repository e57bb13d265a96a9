list(APPEND LORVAN_CORE_TESTS
    reports/report_document_test.cpp)

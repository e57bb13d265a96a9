list(APPEND LORVAN_CORE_TESTS
    reports/movement_reports_test.cpp
    reports/random_cheques_test.cpp
    reports/random_movements_test.cpp
    reports/report_routines_test.cpp
    reports/report_document_test.cpp
    reports/report_period_test.cpp
    reports/table_export_test.cpp)
list(APPEND LORVAN_WINDOW_TESTS
    ${CMAKE_CURRENT_LIST_DIR}/report_layout_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/report_pages_test.cpp)

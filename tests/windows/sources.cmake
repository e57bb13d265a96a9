list(APPEND LORVAN_WINDOW_TESTS
    ${CMAKE_CURRENT_LIST_DIR}/box_script.cpp
    ${CMAKE_CURRENT_LIST_DIR}/driver.cpp
    ${CMAKE_CURRENT_LIST_DIR}/main_window_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/program_run.cpp
    ${CMAKE_CURRENT_LIST_DIR}/start_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/entry_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/chooser_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/changes_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/codes_page_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/date_field_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/bad_input_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/marker_window_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/opening_balance_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/program_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/sign_in_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/looks_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/maintenance_test.cpp)

list(APPEND LORVAN_CORE_TESTS
    ${CMAKE_CURRENT_LIST_DIR}/backup_command_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/check_command_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/claimed_marker_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/csv_import_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/csv_reader_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/demo_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/export_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/import_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/jet_damage_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/jet_values_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/older_books.cpp
    ${CMAKE_CURRENT_LIST_DIR}/opened_book_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/progress_bar_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/stop_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/terminal_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/tool_run.cpp
    ${CMAKE_CURRENT_LIST_DIR}/tool_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/working_days_test.cpp)
list(APPEND LORVAN_CORE_TEST_LIBRARIES lorvan_tools)

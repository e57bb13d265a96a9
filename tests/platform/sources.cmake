list(APPEND LORVAN_CORE_TESTS
    platform/amounts_test.cpp
    platform/connection_test.cpp
    platform/damaged_files_test.cpp
    platform/date_text_test.cpp
    platform/durability_settings_test.cpp
    platform/folder_test.cpp
    platform/process_test.cpp
    platform/settings_store_test.cpp
    platform/sql_functions_test.cpp
    platform/text_test.cpp)

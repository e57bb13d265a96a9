list(APPEND LORVAN_CORE_TESTS
    app/backup_retention_test.cpp
    app/book_backup_test.cpp
    app/book_restore_test.cpp
    app/hostile_folder_test.cpp
    app/book_schema_test.cpp
    app/book_opening_test.cpp
    app/lock_trust_test.cpp
    app/marker_contention_test.cpp
    app/notices_test.cpp
    app/path_file_test.cpp
    app/schema_upgrade_test.cpp
    app/usage_marker_test.cpp)

list(APPEND LORVAN_CORE_TESTS
    cashbook/book_check_test.cpp
    cashbook/cash_book_test.cpp
    cashbook/day_view_test.cpp
    cashbook/entry_content_test.cpp
    cashbook/entry_rules_test.cpp
    cashbook/failing_disk_test.cpp
    cashbook/kill_test.cpp
    cashbook/movement_batch_test.cpp
    cashbook/opening_balance_test.cpp
    cashbook/opening_balance_rules_test.cpp
    cashbook/random_changes_test.cpp)

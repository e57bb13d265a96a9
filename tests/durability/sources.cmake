list(APPEND LORVAN_DURABILITY_TESTS
    durability/durability_main.cpp
    durability/fault_test.cpp
    durability/power_cut_test.cpp
    durability/stored_state.cpp
    durability/stored_state.h
    support/disk_log.cpp
    support/disk_log.h
    support/watched_disk.cpp
    support/watched_disk.h
    tools/older_books.cpp
    tools/older_books.h
    tools/tool_run.cpp
    tools/tool_run.h)
list(APPEND LORVAN_CORE_TESTS durability/real_disk_test.cpp)

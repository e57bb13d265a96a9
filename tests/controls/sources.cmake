list(APPEND LORVAN_WINDOW_TESTS
    ${CMAKE_CURRENT_LIST_DIR}/code_chooser_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/entry_field_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/fit_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/label3d_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/lists_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/theme_test.cpp
    ${CMAKE_CURRENT_LIST_DIR}/window_placement_test.cpp)

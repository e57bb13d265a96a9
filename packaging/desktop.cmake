# Desktop entry and AppStream data. The program that the desktop starts is the one that offers the books, where there is one.
if(TARGET lorvan-books)
    set(LORVAN_DESKTOP_PROGRAM lorvan-books)
else()
    set(LORVAN_DESKTOP_PROGRAM lorvan)
endif()

configure_file(lorvan.desktop.in lorvan.desktop @ONLY)
if(LORVAN_DESKTOP_PROGRAM STREQUAL "lorvan-books")
    file(READ books-action.desktop.in books_action)
    file(APPEND "${CMAKE_CURRENT_BINARY_DIR}/lorvan.desktop" "${books_action}")
endif()
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/lorvan.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")

string(TIMESTAMP LORVAN_RELEASE_DATE "%Y-%m-%d" UTC) # SOURCE_DATE_EPOCH where it is set
configure_file(lorvan.metainfo.xml.in lorvan.metainfo.xml @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/lorvan.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# The program's icon as it is drawn, and painted in the sizes that desktops look for.
install(FILES lorvan.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

find_program(RSVG_CONVERT rsvg-convert)
if(NOT RSVG_CONVERT)
    message(STATUS "No rsvg-convert (librsvg2-bin): the icon is installed in its scalable form alone")
    return()
endif()
foreach(size 16 22 24 32 48 64 128 256 512)
    set(icon "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/lorvan.png")
    add_custom_command(OUTPUT "${icon}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}"
        COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size} --output "${icon}" "${CMAKE_CURRENT_SOURCE_DIR}/lorvan.svg"
        DEPENDS lorvan.svg VERBATIM)
    list(APPEND lorvan_packaged_files "${icon}")
    install(FILES "${icon}" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()

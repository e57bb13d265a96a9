# Manual pages in English and Greek, compressed as packages want them.
find_program(GZIP gzip REQUIRED)
set(manual_programs lorvan lorvan-data)
if(TARGET lorvan-books)
    list(APPEND manual_programs lorvan-books)
endif()

# compress(SOURCE TARGET): without name and time, so that the same source gives the same bytes.
function(compress source target)
    get_filename_component(folder "${target}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${target}"
        COMMAND "${GZIP}" -9 --no-name --stdout "${source}" > "${target}"
        DEPENDS "${source}" VERBATIM)
endfunction()

foreach(program ${manual_programs})
    foreach(language . el)
        set(page "${CMAKE_CURRENT_BINARY_DIR}/man/${language}/${program}.1.gz")
        compress("${PROJECT_SOURCE_DIR}/docs/${language}/${program}.1" "${page}")
        list(APPEND lorvan_packaged_files "${page}")
        install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/${language}/man1")
    endforeach()
endforeach()

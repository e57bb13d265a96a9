# lorvan_VERSION_ARCH.deb: what `cmake --install` installs, packed by cpack. The program folder of an installed program is fixed
# when it is compiled, so the prefix is that of the configuration.
string(TIMESTAMP LORVAN_CHANGELOG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(debian/changelog.in changelog @ONLY)
compress("${CMAKE_CURRENT_BINARY_DIR}/changelog" "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz")
compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${CMAKE_CURRENT_BINARY_DIR}/NEWS.gz")
set(debian_documents "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz" "${CMAKE_CURRENT_BINARY_DIR}/NEWS.gz")
list(APPEND lorvan_packaged_files ${debian_documents})
install(FILES ${debian_documents} debian/copyright DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/lorvan")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lorvan)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "Lorvan <lorvan@lorvan.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "cash book of a small business, in Greek")
set(CPACK_PACKAGE_DESCRIPTION
"Lorvan keeps income and expenses of each day and the balance that goes from
one day to the next. Days are closed and carry a check code; every change
stands in a journal and can be taken back; nine reports are shown, printed
and saved. The interface is Greek.
.
The companion lorvan-books shows the books of a computer and makes new ones.
The companion lorvan-data makes, checks, repairs, imports, exports, backs up
and restores books on the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-core, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
include(CPack)

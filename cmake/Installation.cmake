# What an installation has besides the program's own folders: the names it is started by, its place in the desktop's
# menu, manuals, and what a clerk's own folder begins with (see src/program/user_folder.h).

set(ZEL_PACKAGE zelmark-hour-ledger)
set(package "${PROJECT_SOURCE_DIR}/package")
set(made "${CMAKE_BINARY_DIR}/package")

# In bin the programs are links into their folders, by which each finds what stands beside it.
function(zel_link name folder)
  file(MAKE_DIRECTORY "${made}/bin")
  file(CREATE_LINK "../${ZEL_SUITE_DIR}/${folder}/${name}" "${made}/bin/${name}" SYMBOLIC)
  install(FILES "${made}/bin/${name}" DESTINATION bin COMPONENT program)
endfunction()
zel_link(zel zel)
zel_link(zel-run zel)
zel_link(korvan-db bin)

install(FILES "${package}/zel.desktop" DESTINATION share/applications COMPONENT program)
install(FILES "${PROJECT_SOURCE_DIR}/src/desktop/icons/zel.svg"
        DESTINATION share/icons/hicolor/scalable/apps COMPONENT program)
install(FILES "${package}/copyright" "${PROJECT_SOURCE_DIR}/docs/automation.md" "${PROJECT_SOURCE_DIR}/docs/database.md"
        "${PROJECT_SOURCE_DIR}/docs/glossary.md" DESTINATION share/doc/${ZEL_PACKAGE} COMPONENT program)

# zel_gzip(SOURCE RESULT): as the distribution wants manuals, the same bytes at every build.
set(compressed)
function(zel_gzip source result)
  add_custom_command(OUTPUT "${result}"
    COMMAND sh -c [[gzip -9nc "$0" >"$1"]] "${source}" "${result}"
    DEPENDS "${source}"
    VERBATIM)
  set(compressed ${compressed} "${result}" PARENT_SCOPE)
endfunction()
foreach(page zel zel-run korvan-db)
  zel_gzip("${package}/${page}.1" "${made}/${page}.1.gz")
  install(FILES "${made}/${page}.1.gz" DESTINATION share/man/man1 COMPONENT program)
endforeach()
zel_gzip("${package}/changelog" "${made}/changelog.gz")
install(FILES "${made}/changelog.gz" DESTINATION share/doc/${ZEL_PACKAGE} COMPONENT program)

# The empty database of a first start.
add_custom_command(OUTPUT "${made}/template/Korvan.mdb"
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${made}/template"
  COMMAND korvan-db create "${made}/template/Korvan.mdb" --force
  DEPENDS korvan-db
  COMMENT "Making the empty database"
  VERBATIM)
install(FILES "${made}/template/Korvan.mdb" DESTINATION ${ZEL_SUITE_DIR}/template/database COMPONENT program)
add_custom_target(package-files ALL DEPENDS ${compressed} "${made}/template/Korvan.mdb")
add_dependencies(package-files stage)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${ZEL_PACKAGE})
set(CPACK_PACKAGE_VENDOR "Zelmark Hour Ledger developers")
set(CPACK_PACKAGE_CONTACT "Zelmark Hour Ledger developers <developers@zelmark.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "time keeping for people and equipment on incidents")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [[
The Zelmark Hour Ledger records who and what works on an incident, posts
hours and use day by day, keeps debits and adjustments, and prints the
payment forms. Several clerks can work on one shared database.

It comes with zel-run, which runs the program from a script without a
window, and korvan-db, which makes, fills and checks databases.]])
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Reports need a font of known widths; the rest of Qt's parts come with the libraries. Printed forms are shown through
# xdg-open.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS postgresql)
include(CPack)

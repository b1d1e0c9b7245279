# The folders of the program, said once: the build stages them in ${CMAKE_BINARY_DIR}/stage, ready to be started, and
# an installation has them in lib/zel.

set(ZEL_STAGE "${CMAKE_BINARY_DIR}/stage")
set(ZEL_SUITE_DIR lib/zel)

# zel_stage(FOLDER TARGET...): programs that stand in FOLDER.
function(zel_stage folder)
  foreach(program ${ARGN})
    if(TARGET ${program})
      install(TARGETS ${program} RUNTIME DESTINATION ${folder} COMPONENT stage EXCLUDE_FROM_ALL)
      install(TARGETS ${program} RUNTIME DESTINATION ${ZEL_SUITE_DIR}/${folder} COMPONENT program)
      set_property(GLOBAL APPEND PROPERTY ZEL_STAGED ${program})
    endif()
  endforeach()
endfunction()

# zel_stage_files(FOLDER FILE...): the same for files.
function(zel_stage_files folder)
  install(FILES ${ARGN} DESTINATION ${folder} COMPONENT stage EXCLUDE_FROM_ALL)
  install(FILES ${ARGN} DESTINATION ${ZEL_SUITE_DIR}/${folder} COMPONENT program)
endfunction()

zel_stage(zel zel zel-run)
zel_stage(zel/reports tablon)
zel_stage(bin korvan-db)

# Layouts are found through a path with a capital, programs through one without.
file(GLOB layouts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/reports/*.rpt")
zel_stage_files(zel/Reports ${layouts})

math(EXPR minor "100 + ${PROJECT_VERSION_MINOR}")
math(EXPR patch "100 + ${PROJECT_VERSION_PATCH}")
string(SUBSTRING ${minor} 1 2 minor)
string(SUBSTRING ${patch} 1 2 patch)
file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/korvan_version" CONTENT "Korvan ${PROJECT_VERSION_MAJOR}.${minor}.${patch}\r\n")
zel_stage_files(bin "${CMAKE_BINARY_DIR}/korvan_version")

get_property(staged GLOBAL PROPERTY ZEL_STAGED)
add_custom_target(stage ALL
  COMMAND sh -c [["$0" --install "$1" --prefix "$2" --component stage >"$1/stage.log"]]
          "${CMAKE_COMMAND}" "${CMAKE_BINARY_DIR}" "${ZEL_STAGE}"
  COMMENT "Staging the program"
  VERBATIM)
if(staged)
  add_dependencies(stage ${staged})
endif()

# Made once and then left alone: what was entered into it while trying the program stays.
if(TARGET korvan-db)
  add_custom_command(OUTPUT "${ZEL_STAGE}/database/Korvan.mdb"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${ZEL_STAGE}/database"
    COMMAND korvan-db demo "${ZEL_STAGE}/database/Korvan.mdb"
    COMMENT "Making the demo database"
    VERBATIM)
  add_custom_target(demo-database DEPENDS "${ZEL_STAGE}/database/Korvan.mdb")
  add_dependencies(stage demo-database)
endif()

# Installs the build into a fresh prefix and checks that the tree holds what a user runs and reads.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}" RESULT_VARIABLE status OUTPUT_QUIET)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${status}")
endif()
foreach(file bin/qlon bin/qlon-demo-site bin/qlon-jet-check share/applications/qlon.desktop share/icons/hicolor/256x256/apps/qlon.png
        share/man/man1/qlon.1
        share/doc/qlon/README.md)
  if(NOT EXISTS "${PREFIX}/${file}")
    message(FATAL_ERROR "the installed tree has no ${file}")
  endif()
endforeach()
# The demonstration site's writer takes options as options, never as a folder's name.
foreach(option --help --no-such-option)
  execute_process(COMMAND "${PREFIX}/bin/qlon-demo-site" ${option} WORKING_DIRECTORY "${PREFIX}" RESULT_VARIABLE status
    OUTPUT_VARIABLE printed ERROR_VARIABLE printed)
  if(EXISTS "${PREFIX}/${option}" OR (option STREQUAL "--help" AND NOT status EQUAL 0) OR (NOT option STREQUAL "--help" AND NOT status EQUAL 2))
    message(FATAL_ERROR "qlon-demo-site ${option} ended with ${status}: ${printed}")
  endif()
endforeach()
execute_process(COMMAND "${PREFIX}/bin/qlon-demo-site" "${PREFIX}/demo" RESULT_VARIABLE status OUTPUT_VARIABLE printed)
if(NOT status EQUAL 0 OR NOT printed MATCHES "Open it with: qlon --drive C=${PREFIX}/demo")
  message(FATAL_ERROR "qlon-demo-site FOLDER said: ${printed}")
endif()
file(REMOVE_RECURSE "${PREFIX}")

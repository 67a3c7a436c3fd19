# Installs the build into a fresh prefix and checks that the tree holds what a user runs and reads.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}" RESULT_VARIABLE status OUTPUT_QUIET)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${status}")
endif()
foreach(file bin/qlon bin/qlon-chain bin/qlon-serve bin/qlon-demo-site bin/qlon-jet-check share/applications/qlon.desktop share/icons/hicolor/256x256/apps/qlon.png
        share/icons/hicolor/48x48/apps/qlon.png share/icons/hicolor/scalable/apps/qlon.svg share/man/man1/qlon.1.gz
        share/doc/qlon/README.md share/doc/qlon/copyright share/doc/qlon/changelog.gz)
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

# The Debian package of the same tree, as lintian reads it: no error.
find_program(LINTIAN lintian)
if(LINTIAN)
  set(packages "${PREFIX}-deb")
  file(REMOVE_RECURSE "${packages}")
  execute_process(COMMAND cpack -G DEB -B "${packages}" WORKING_DIRECTORY "${BUILD_DIR}" RESULT_VARIABLE status OUTPUT_VARIABLE printed
    ERROR_VARIABLE printed)
  file(GLOB package "${packages}/*.deb")
  if(NOT status EQUAL 0 OR NOT package)
    message(FATAL_ERROR "cpack -G DEB failed: ${printed}")
  endif()
  execute_process(COMMAND "${LINTIAN}" --fail-on error --allow-root ${package} RESULT_VARIABLE status OUTPUT_VARIABLE printed
    ERROR_VARIABLE printed)
  file(REMOVE_RECURSE "${packages}")
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "lintian found errors:\n${printed}")
  endif()
  message(STATUS "lintian:\n${printed}")
endif()

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
file(REMOVE_RECURSE "${PREFIX}")

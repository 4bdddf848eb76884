# Installs everything of the build directory BUILD into PREFIX, and leaves nothing there of an installation before.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

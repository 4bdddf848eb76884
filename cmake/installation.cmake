if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR NOT CMAKE_INSTALL_BINDIR MATCHES "^[^/]+/?$")
    message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR must be relative to the prefix, and CMAKE_INSTALL_BINDIR one level below it: "
                        "programs find their libraries from there.")
endif()

option(PANEL_INSTALL_SIMULATOR "Install the simulated settings service" ON)
option(PANEL_INSTALL_KEYBOARD "Install the stand-in keyboard" ON)

# Where the libraries go that stand in for the panel's own. They have the names of those, so no directory will do
# in which anything looks unasked: an installation must never take the place of what a panel has.
set(PANEL_STANDIN_DIR ${CMAKE_INSTALL_LIBDIR}/panelsettings/simulator)
# For the same reason the service for Linux has a directory of its own.
set(PANEL_LINUX_DIR ${CMAKE_INSTALL_LIBDIR}/panelsettings/linux)

# A program or library that is installed, with the search path that it has there.
#
#   panel_install(TARGET COMPONENT NAME [STANDIN | ASKS_FOR_STANDINS])
#
# The build tree has the shape of an installation (libraries in one directory, programs one level below the
# top), so that one relative path serves both and nothing is rewritten on installing. A path that CMake is to
# rewrite ends in a colon, and the empty entry behind a colon is, to the dynamic linker, the current directory.
# In the build tree the stand-ins lie beside the plug-in, where whatever loads it finds them.
function(panel_install target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "STANDIN;ASKS_FOR_STANDINS" "COMPONENT" "")
    if(NOT arg_COMPONENT)
        message(FATAL_ERROR "panel_install(${target}): which component is it part of?")
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        # Beside itself too, where a panel has all of it in one directory.
        set(search_path "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
    else()
        set(search_path "$ORIGIN")
    endif()
    if(arg_ASKS_FOR_STANDINS)
        list(PREPEND search_path "$ORIGIN/../${PANEL_STANDIN_DIR}")
    endif()
    set(library_directory ${CMAKE_INSTALL_LIBDIR})
    if(arg_STANDIN)
        set(library_directory ${PANEL_STANDIN_DIR})
    endif()
    set_target_properties(${target} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "${search_path}")
    string(TOUPPER ${arg_COMPONENT} option)
    if(arg_STANDIN AND NOT PANEL_INSTALL_${option})
        return()
    endif()
    install(TARGETS ${target}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${arg_COMPONENT}
        LIBRARY DESTINATION ${library_directory} COMPONENT ${arg_COMPONENT})
endfunction()

if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR NOT CMAKE_INSTALL_BINDIR MATCHES "^[^/]+/?$")
    message(FATAL_ERROR "CMAKE_INSTALL_LIBDIR must be relative to the prefix, and CMAKE_INSTALL_BINDIR one level below it: "
                        "programs find their libraries from there.")
endif()

# A program or library that is installed, with the search path that it has there.
#
# The build tree has the shape of an installation (libraries in one directory, programs one level below the
# top), so that one relative path serves both and nothing is rewritten on installing. A path that CMake is to
# rewrite ends in a colon, and the empty entry behind a colon is, to the dynamic linker, the current directory.
function(panel_install target)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        # Beside itself too, where a panel has all of it in one directory.
        set(search_path "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
    else()
        set(search_path "$ORIGIN")
    endif()
    set_target_properties(${target} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "${search_path}")
    install(TARGETS ${target}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

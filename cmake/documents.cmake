# Embeds the documents of a resource file, compiled ahead of time, and puts the names of the sources made of
# them into OUT. Documents are texts: each is compressed that gets smaller by it, which the resource compiler
# by itself does only with those that lose more than two thirds.
#
# The toolkit writes its list of what is to be embedded anew at each configuration. Unless something is different
# in it, it stays the old file: else a build after a configuration that changed nothing would link everything again.
function(panel_add_documents out resource_file)
    get_filename_component(name ${resource_file} NAME_WE)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}_qmlcache.qrc)
    set(before "")
    if(EXISTS ${list})
        file(READ ${list} before)
        file(RENAME ${list} ${list}.before)
    endif()
    qtquick_compiler_add_resources(sources ${resource_file} OPTIONS --threshold 0)
    file(READ ${list} now)
    if(now STREQUAL before)
        file(RENAME ${list}.before ${list})
    endif()
    set(${out} ${sources} PARENT_SCOPE)
endfunction()

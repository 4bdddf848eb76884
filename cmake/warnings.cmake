# All warnings are errors. Applied per target, so that generated code of other
# projects is never judged by our rules.
function(panel_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
endfunction()

if(PANEL_SANITIZE)
    add_compile_options(-fsanitize=${PANEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${PANEL_SANITIZE})
endif()

# Applied per target, so that generated code of other projects is never judged by our rules. That a warning is an
# error is for those who change this code; with another compiler than ours it would only keep others from building.
option(PANEL_WERROR "Treat warnings as errors" OFF)
function(panel_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${PANEL_WERROR}>:-Werror>)
endfunction()

if(PANEL_SANITIZE)
    add_compile_options(-fsanitize=${PANEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${PANEL_SANITIZE})
endif()

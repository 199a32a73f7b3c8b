find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# vantor_draw(picture drawing option…) has rsvg-convert make the picture of an SVG in the current folder.
function(vantor_draw picture drawing)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} ${ARGN} --output=${picture} ${CMAKE_CURRENT_SOURCE_DIR}/${drawing}
    DEPENDS ${drawing}
    VERBATIM)
endfunction()

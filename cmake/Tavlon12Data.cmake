# The target tavlon12_data copies the folders of data/ beside the programs, each file again when it changes. Files that
# a player adds or edits there stay as they are. data/art is compiled into the program instead.

set(tavlon12_staged "")
file(GLOB tavlon12_data_files CONFIGURE_DEPENDS LIST_DIRECTORIES false RELATIVE "${CMAKE_SOURCE_DIR}/data"
    "${CMAKE_SOURCE_DIR}/data/*" "${CMAKE_SOURCE_DIR}/data/*/*"
    "${CMAKE_SOURCE_DIR}/data/*/*/*" "${CMAKE_SOURCE_DIR}/data/*/*/*/*")
foreach(file IN LISTS tavlon12_data_files)
    if(file MATCHES "^art/" OR file MATCHES "(^|/)README\\.md$")
        continue()
    endif()
    add_custom_command(
        OUTPUT "${TAVLON12_BIN_DIR}/${file}"
        COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/data/${file}" "${TAVLON12_BIN_DIR}/${file}"
        DEPENDS "${CMAKE_SOURCE_DIR}/data/${file}"
        COMMENT "Staging ${file}"
        VERBATIM)
    list(APPEND tavlon12_staged "${TAVLON12_BIN_DIR}/${file}")
endforeach()
add_custom_target(tavlon12_data ALL DEPENDS ${tavlon12_staged})

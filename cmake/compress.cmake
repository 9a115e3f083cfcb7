# compress(SOURCE NAME): builds ${compressed_folder}/NAME.gz, without date or name in it, so that it stays the same.
set(compressed_folder ${CMAKE_BINARY_DIR}/compressed)

function(compress SOURCE NAME)
  get_filename_component(folder ${compressed_folder}/${NAME} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${compressed_folder}/${NAME}.gz DEPENDS ${SOURCE}
    COMMAND gzip -9nc ${SOURCE} > ${compressed_folder}/${NAME}.gz VERBATIM)
  string(REPLACE "/" "_" target ${NAME})
  add_custom_target(compressed_${target} ALL DEPENDS ${compressed_folder}/${NAME}.gz)
endfunction()

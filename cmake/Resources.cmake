# qd_add_resources(TARGET SCRIPT): compiles a resource script and embeds the compiled form in TARGET as the
# section ".rsrc", where the platform layer looks for it.
find_program(QD_RC NAMES llvm-rc llvm-rc-14 REQUIRED)

function(qd_add_resources target script)
  get_filename_component(folder ${script} DIRECTORY)
  get_filename_component(name ${script} NAME_WE)
  set(preprocessed ${CMAKE_CURRENT_BINARY_DIR}/${name}.i.rc)
  set(compiled ${CMAKE_CURRENT_BINARY_DIR}/${name}.res)
  file(GLOB_RECURSE pictures CONFIGURE_DEPENDS ${folder}/*.bmp ${folder}/*.ico)
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h ${folder}/*.rc)
  add_custom_command(
    OUTPUT ${compiled}
    COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c -DRC_INVOKED -I${folder} ${script} -o ${preprocessed}
    # The script by its bare name: a path that begins with a slash could read as one of the tool's options.
    COMMAND ${QD_RC} /no-preprocess /C 65001 /I ${folder} /FO ${name}.res ${name}.i.rc
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    DEPENDS ${script} ${headers} ${pictures}
    COMMENT "Compiling ${name}.rc"
    VERBATIM)
  set(assembly ${CMAKE_CURRENT_BINARY_DIR}/${name}_rsrc.S)
  file(CONFIGURE OUTPUT ${assembly} CONTENT
"    .section .rsrc,\"a\",%progbits
    .balign 16
    .incbin \"${compiled}\"
    .section .note.GNU-stack,\"\",%progbits
")
  set_source_files_properties(${assembly} PROPERTIES OBJECT_DEPENDS ${compiled})
  target_sources(${target} PRIVATE ${assembly})
endfunction()

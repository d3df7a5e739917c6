# Resource scripts: compiled by LLVM's resource compiler and embedded in a module as bytes.
find_program(LLVM_RC llvm-rc REQUIRED)
set(STYLEATLAS_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/EmbedResources.cmake)

# Compiles <script> to the resource file <output> in the current binary folder. The C++ compiler preprocesses it, so
# that llvm-rc needs no clang. File names are relative to that folder, as llvm-rc takes a leading slash for an option.
function(styleatlas_compile_resources script output)
  cmake_path(ABSOLUTE_PATH script)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_CXX_COMPILER} -E -P -x c -DRC_INVOKED -I ${PROJECT_SOURCE_DIR}/platform/include
            -MD -MF ${output}.d -MT ${output} -o ${output}.rc ${script}
    COMMAND ${LLVM_RC} /no-preprocess /FO ${output} ${output}.rc
    BYPRODUCTS ${output}.rc
    DEPENDS ${script}
    DEPFILE ${output}.d
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    COMMENT "Compiling the resources ${output}"
    VERBATIM)
endfunction()

# Makes the object library <target> for a module to link. It defines ModuleResources (platform/user/ResourceFile.h) with
# the bytes of the compiled <script>.
function(styleatlas_embed_resources target script)
  set(compiled ${target}.res)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
  styleatlas_compile_resources(${script} ${compiled})
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -D INPUT=${compiled} -D OUTPUT=${source} -P ${STYLEATLAS_EMBED_SCRIPT}
    DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/${compiled} ${STYLEATLAS_EMBED_SCRIPT}
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    COMMENT "Embedding the resources ${compiled}"
    VERBATIM)
  add_library(${target} OBJECT ${source})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
endfunction()

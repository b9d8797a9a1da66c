# Header-only packages of the building machine that samples and tools use. Each is copied into the
# build folder, because the folder it lies in is the building machine's and not the target's.

# jsw_header_package(target folder): the interface library target, for #include <folder/...>.
function(jsw_header_package target folder)
  set(JSW_HEADERS_${folder}
      /usr/include/${folder}
      CACHE PATH "Folder of the headers <${folder}/...>")
  file(COPY ${JSW_HEADERS_${folder}}/ DESTINATION ${CMAKE_BINARY_DIR}/packages/${target}/${folder})
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/packages/${target})
endfunction()

jsw_header_package(cli11 CLI)
jsw_header_package(nlohmann_json nlohmann)

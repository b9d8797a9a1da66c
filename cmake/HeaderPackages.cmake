# The build machine's header-only packages for samples and tools. Each is copied into the build folder,
# because its own folder contains headers of the build machine, not of the target.

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

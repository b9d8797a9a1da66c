# The contents of the kit, for `cmake --install` and for the package.
#
#   bin/          jsw.dll with its symbols beside it, the modules, tools, the demonstration
#   include/jsw/  the public headers
#   lib/          import library, lib/cmake/jsw the CMake package
#   common/       the sources that samples and windows share
#   samples/      the sources of the samples; the kit's root is the project that builds them
#   window/       the sources of the job window and the prompt, which are built, too
#   docs/         the documents
include(CMakePackageConfigHelpers)

set(kit_package lib/cmake/jsw)

install(
  TARGETS jsw jsw_headers
  EXPORT jswTargets
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib)
# One of the two; none in a debug build, whose library contains its symbols.
install(FILES $<TARGET_FILE:jsw>.debug $<TARGET_FILE_DIR:jsw>/jsw.pdb DESTINATION bin OPTIONAL)
# For Visual Studio's linker, and to make other import libraries.
install(FILES $<TARGET_PROPERTY:jsw_lib,FILE> jsw/jsw.def DESTINATION lib)
install(
  DIRECTORY include/jsw
  DESTINATION include
  FILES_MATCHING
  PATTERN *.h)

# The tools, the modules and the updater, with their data, ready to run.
install(
  TARGETS jswctl jswv bcat reng jswo comc qldemo qlupdater
  RUNTIME DESTINATION bin
  LIBRARY DESTINATION bin)
install(FILES tools/qldemo/qldejsw.loc DESTINATION bin)
install(DIRECTORY tools/qldemo/scripts DESTINATION bin)
install(DIRECTORY samples/content/ DESTINATION bin/data)
install(DIRECTORY window/languages/ DESTINATION bin)

install(DIRECTORY common samples window DESTINATION .)
install(FILES cmake/HeaderPackages.cmake cmake/JswTargets.cmake cmake/mingw-w64.cmake DESTINATION cmake)
install(FILES cmake/kit/CMakeLists.txt README.md CHANGELOG.md DESTINATION .)
install(DIRECTORY docs DESTINATION .)

install(
  EXPORT jswTargets
  NAMESPACE jsw::
  DESTINATION ${kit_package})
configure_package_config_file(cmake/kit/jswConfig.cmake.in ${PROJECT_BINARY_DIR}/jswConfig.cmake
                              INSTALL_DESTINATION ${kit_package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/jswConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/jswConfig.cmake ${PROJECT_BINARY_DIR}/jswConfigVersion.cmake
        DESTINATION ${kit_package})

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME jsw)
set(CPACK_PACKAGE_VENDOR Quillon)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "The job status window of a printer driver: development kit")
set(CPACK_PACKAGE_FILE_NAME jsw-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/package)
include(CPack)

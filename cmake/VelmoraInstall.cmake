# The package file of find_package(velmora), installed beside libraries, headers and programs.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/velmora")
set(package_libraries "")
foreach(pair "SQLITE:SQLite3" "SQLITE:ICU COMPONENTS uc i18n" "SQLITE:Threads" "ODBC:ODBC" "ODBC:Threads" "QT:Qt6 COMPONENTS Widgets" "DOCUMENTS:Qt6 COMPONENTS Gui Svg" "SCANNER:Threads")
  string(REGEX MATCH "^([A-Z]+):(.*)$" matched "${pair}")
  if(VELMORA_${CMAKE_MATCH_1})
    string(APPEND package_libraries "find_dependency(${CMAKE_MATCH_2})\n")
  endif()
endforeach()
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/velmora-config.cmake" @ONLY CONTENT
"include(CMakeFindDependencyMacro)
${package_libraries}include(\"\${CMAKE_CURRENT_LIST_DIR}/velmora-targets.cmake\")
")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/velmora-config-version.cmake" COMPATIBILITY SameMinorVersion)

install(EXPORT velmora NAMESPACE velmora:: FILE velmora-targets.cmake DESTINATION "${package_folder}" COMPONENT development)
install(FILES "${PROJECT_BINARY_DIR}/velmora-config.cmake" "${PROJECT_BINARY_DIR}/velmora-config-version.cmake"
  DESTINATION "${package_folder}" COMPONENT development)

# What is installed, where, and how others find it. Each piece is of the component that it is packaged with.
include(CMakePackageConfigHelpers)

set(jar_dir share/rti1516e)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/rti1516e)

install(TARGETS rti1516e fedtime1516e EXPORT rti1516e
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
get_target_property(core_jar localcore JAR_FILE)
install(FILES ${core_jar} DESTINATION ${jar_dir} COMPONENT localcore)
if(TARGET hub)
  get_target_property(hub_jar hub JAR_FILE)
  install(PROGRAMS ${CMAKE_BINARY_DIR}/rti1516e-hub ${CMAKE_BINARY_DIR}/rti1516e-replay DESTINATION bin COMPONENT hub)
  install(FILES ${hub_jar} DESTINATION ${jar_dir} COMPONENT hub)
  if(TARGET hubcluster)
    get_target_property(cluster_jar hubcluster JAR_FILE)
    install(FILES ${cluster_jar} DESTINATION ${jar_dir} COMPONENT hub)
  endif()
  # For packages only, whose prefix is /usr: elsewhere there is no saying where the system's own files are.
  install(FILES cmake/hub/hub.conf DESTINATION ../etc/rti1516e COMPONENT hub EXCLUDE_FROM_ALL)
  install(FILES cmake/hub/rti1516e-hub.service DESTINATION lib/systemd/system COMPONENT hub EXCLUDE_FROM_ALL)
endif()
install(DIRECTORY include/RTI DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

# find_package(rti1516e): the targets rti1516e::rti1516e and rti1516e::fedtime1516e.
install(EXPORT rti1516e NAMESPACE rti1516e:: FILE rti1516eTargets.cmake
  DESTINATION ${config_dir} COMPONENT development)
configure_package_config_file(cmake/rti1516eConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/rti1516eConfig.cmake
  INSTALL_DESTINATION ${config_dir}
  PATH_VARS jar_dir)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/rti1516eConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/rti1516eConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/rti1516eConfigVersion.cmake
  DESTINATION ${config_dir} COMPONENT development)

# pkg-config rti1516e. It works out the prefix from where the file stands, so that the tree can be moved, unless it
# stands outside the tree.
set(pc_prefix ${CMAKE_INSTALL_PREFIX})
set(pc_libdir ${CMAKE_INSTALL_LIBDIR})
if(NOT IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" pc_prefix "\${pcfiledir}/${pc_prefix}")
  set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
configure_file(cmake/rti1516e.pc.in ${CMAKE_CURRENT_BINARY_DIR}/rti1516e.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/rti1516e.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

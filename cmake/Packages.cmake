# Debian packages, one for each component: cpack -G DEB in the build folder makes librti1516e, librti1516e-dev,
# tovu1516e-localcore and, if it was built, rti1516e-hub.
set(RTI1516E_PACKAGE_CONTACT "librti1516e maintainers <librti1516e@example.invalid>" CACHE STRING
  "Whom the packages name as their maintainer")

# The Java runtime that the library is to find is the one it is built with.
set(jre_package default-jre-headless)
execute_process(COMMAND dpkg-query --search ${JAVA_JVM_LIBRARY} OUTPUT_VARIABLE owner ERROR_QUIET RESULT_VARIABLE result)
if(result EQUAL 0)
  string(REGEX REPLACE "[:,].*" "" jre_package "${owner}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME librti1516e)
set(CPACK_PACKAGE_VENDOR librti1516e)
set(CPACK_PACKAGE_CONTACT ${RTI1516E_PACKAGE_CONTACT})
# Each package has a summary of its own, the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_DESCRIPTION "${PROJECT_DESCRIPTION}, IEEE 1516-2010.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL runtime development localcore)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/src/fedtime ${CMAKE_BINARY_DIR}/src)

set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${PROJECT_DESCRIPTION}
The library of IEEE 1516-2010, and the time library with the standard logical times.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME librti1516e)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS ${jre_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS tovu1516e-localcore)

set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${PROJECT_DESCRIPTION} (development files)
What federates are built with: headers, and files for CMake and pkg-config.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME librti1516e-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "librti1516e (= ${PROJECT_VERSION})")

set(CPACK_COMPONENT_LOCALCORE_DESCRIPTION "run-time infrastructure for the HLA within one process
The local core: federates of one process meet through librti1516e with nothing else installed.")
set(CPACK_DEBIAN_LOCALCORE_PACKAGE_NAME tovu1516e-localcore)
set(CPACK_DEBIAN_LOCALCORE_PACKAGE_SECTION java)
set(CPACK_DEBIAN_LOCALCORE_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_LOCALCORE_PACKAGE_ENHANCES librti1516e)

if(TARGET hub)
  list(APPEND CPACK_COMPONENTS_ALL hub)
  set(CPACK_COMPONENT_HUB_DESCRIPTION "run-time infrastructure for the HLA across processes and machines
The hub: a service that federates of several processes and machines meet at.")
  set(CPACK_DEBIAN_HUB_PACKAGE_NAME rti1516e-hub)
  set(CPACK_DEBIAN_HUB_PACKAGE_SECTION java)
  set(CPACK_DEBIAN_HUB_PACKAGE_ARCHITECTURE all)
  set(CPACK_DEBIAN_HUB_PACKAGE_DEPENDS
    "tovu1516e-localcore (= ${PROJECT_VERSION}), libnetty-java, liblz4-java, ${jre_package} | java17-runtime-headless")
  set(CPACK_DEBIAN_HUB_PACKAGE_SUGGESTS "libcurator-framework-java, libslf4j-java, zookeeper")
  set(CPACK_DEBIAN_HUB_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/hub/conffiles)
endif()

include(CPack)

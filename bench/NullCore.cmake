# Writes the Java sources of a core whose methods return at once, from the library's own lists of services and
# callbacks: what a call costs on top of it is the library's and the Java VM's.
#
# cmake -DSERVICES=Services.def -DCALLBACKS=Callbacks.def -DOUTPUT=folder -P NullCore.cmake

set(type_void void)
set(type_bool boolean)
set(type_double double)
set(type_unsigned_long long)
set(type_std::wstring String)
set(type_RangeBounds long[])
set(type_AttributeHandleSet int[])
set(type_DimensionHandleSet int[])
set(type_MessageRetractionHandle byte[])
set(type_TimeQueryReturn byte[])
set(type_std::auto_ptr_LogicalTime_ byte[])
set(type_std::auto_ptr_LogicalTimeInterval_ byte[])

set(value_void "")
set(value_boolean false)
set(value_String "\"Aircraft 4711\"")
set(value_byte[] "TIME")
set(value_int[] "null")
set(value_long[] "null")

function(rows file macro result)
  file(READ ${file} text)
  string(REGEX REPLACE "//[^\n]*" "" text "${text}")
  string(REGEX REPLACE "[ \n]+" " " text "${text}")
  string(REGEX MATCHALL "${macro}\\([a-zA-Z0-9_]+, [^()]+\\([^()]*\\)" found "${text}")
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

set(methods "")
rows(${SERVICES} SERVICE services)
foreach(row IN LISTS services)
  string(REGEX MATCH "^SERVICE\\(([^,]+), ([^()]+)\\(([^()]*)\\)" matched "${row}")
  set(name ${CMAKE_MATCH_1})
  set(codes "${CMAKE_MATCH_3}")
  string(REGEX REPLACE "[ <>]" "_" result "${CMAKE_MATCH_2}")
  set(type "${type_${result}}")
  if(NOT type)
    set(type int) # handles and enumerators
  endif()
  set(value 0)
  if(DEFINED value_${type})
    set(value "${value_${type}}")
  endif()
  if(name STREQUAL "getTimeFactory")
    set(value "\"HLAinteger64Time\"")
  endif()
  if(codes)
    set(codes "byte[] message")
  endif()
  set(body "return ${value};")
  if(name STREQUAL "connect_FA_CM_S")
    set(body "context = java.nio.ByteBuffer.wrap(message).getInt();")
  endif()
  string(APPEND methods "    public ${type} ${name}(${codes}) { ${body} }\n")
endforeach()
string(REPLACE "return ;" "" methods "${methods}")

set(natives "")
file(READ ${CALLBACKS} text)
string(REGEX MATCHALL "CALLBACK\\([a-zA-Z0-9_]+," callbacks "${text}")
foreach(row IN LISTS callbacks)
  string(REGEX REPLACE "CALLBACK\\((.*),$" "\\1" name "${row}")
  string(APPEND natives "    public native void ${name}_Native(byte[] message);\n")
endforeach()

file(WRITE ${OUTPUT}/morva/tovu1516e/RtiFactoryImpl.java
  "package morva.tovu1516e;\n\npublic final class RtiFactoryImpl {}\n")
file(WRITE ${OUTPUT}/morva/tovu1516e/RTIambassadorC2007.java
  "package morva.tovu1516e;\n\npublic final class RTIambassadorC2007 {\n"
  "    /** A time, and just as well a message retraction handle of number 7. */\n"
  "    private static final byte[] TIME = {0, 0, 0, 7, 0, 0, 0, 0};\n"
  "    /** The callback context that connect was given. */\n    public static int context;\n\n"
  "    public RTIambassadorC2007(byte[] message) {}\n\n${methods}}\n")
file(WRITE ${OUTPUT}/morva/tovu1516e/FederateAmbassadorC2007.java
  "package morva.tovu1516e;\n\npublic class FederateAmbassadorC2007 {\n${natives}}\n")

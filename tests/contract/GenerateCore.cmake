# Makes the Java sources of the recording core from services.txt and natives.txt.
include_guard()

# The exceptions of the services, and the one of the callbacks, each before those that a service lists behind it.
# Of the two that services disagree on, tsort chooses.
set(EXCEPTIONS ${CMAKE_CURRENT_BINARY_DIR}/exceptions.txt)
execute_process(
  COMMAND awk "{ for (i = 3; i <= NF; ++i) print $(i == 3 ? 3 : i - 1), $i }
    END { print \"FederateInternalError FederateInternalError\" }" ${CMAKE_CURRENT_SOURCE_DIR}/services.txt
  COMMAND tsort
  OUTPUT_FILE ${EXCEPTIONS} ERROR_QUIET)

# The lines of a table. Square brackets, which would glue the elements of a list together, come as "<".
function(read_table path result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
  file(READ ${path} text)
  string(REPLACE "[" "<" text "${text}")
  string(STRIP "${text}" text)
  string(REPLACE "\n" "<n>" text "${text}")
  string(REPLACE ";" "<s>" text "${text}")
  string(REPLACE "<n>" ";" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Result types by their signature: the Java type and what a method returns that was told nothing.
set(java_V void "null")
set(java_I int "0")
set(java_J long "0L")
set(java_Z boolean "false")
set(java_D double "0.0")
set(java_<B "byte[]" "(byte[]) null")
set(java_<I "int[]" "(int[]) null")
set(java_<J "long[]" "(long[]) null")
set(java_Ljava/lang/String<s> String "(String) null")

# The core's ambassador, without the methods named after PATH.
function(generate_ambassador path)
  read_table(${CMAKE_CURRENT_SOURCE_DIR}/services.txt services)
  set(methods "")
  foreach(service IN LISTS services)
    string(REGEX MATCH "^([^ ]+) \\(([^)]*)\\)([^ ]+)" matched "${service}")
    set(name ${CMAKE_MATCH_1})
    set(takes "${CMAKE_MATCH_2}")
    list(GET java_${CMAKE_MATCH_3} 0 type)
    list(GET java_${CMAKE_MATCH_3} 1 otherwise)
    if(name IN_LIST ARGN)
      continue()
    endif()
    set(parameter "")
    set(message null)
    if(takes STREQUAL "<B")
      set(parameter "byte[] message")
      set(message message)
    endif()
    set(return "return ")
    if(type STREQUAL "void")
      set(return "")
    endif()
    string(APPEND methods
      "   public ${type} ${name}(${parameter}) {\n"
      "      ${return}Recorder.answer(this, \"${name}\", ${message}, ${otherwise});\n"
      "   }\n")
  endforeach()
  set(constructor_parameter "byte[] message")
  set(constructor_message message)
  if("<init>" IN_LIST ARGN)
    set(constructor_parameter "")
    set(constructor_message null)
  endif()
  file(CONFIGURE OUTPUT ${path} @ONLY CONTENT
"package morva.tovu1516e;

import recording.Recorder;

public class RTIambassadorC2007 {
   public RTIambassadorC2007(@constructor_parameter@) throws Throwable {
      Recorder.constructed(this, @constructor_message@);
   }
@methods@}
")
endfunction()

# The class of the callback natives, without those named after PATH.
function(generate_federate_ambassador path)
  read_table(${CMAKE_CURRENT_SOURCE_DIR}/natives.txt natives)
  set(declarations "")
  set(branches "")
  foreach(native IN LISTS natives)
    if(native IN_LIST ARGN)
      continue()
    endif()
    string(APPEND declarations "   public native void ${native}(byte[] message);\n")
    string(APPEND branches "         case \"${native}\" -> ${native}(message);\n")
  endforeach()
  file(CONFIGURE OUTPUT ${path} @ONLY CONTENT
"package morva.tovu1516e;

public class FederateAmbassadorC2007 {
@declarations@
   public void call(String callback, byte[] message) {
      switch (callback) {
@branches@         default -> throw new IllegalArgumentException(callback);
      }
   }
}
")
endfunction()

# The exception classes under DIRECTORY. They are siblings, or CHAINED: each a subclass of the one in the next
# line of the table, so that an exception tells which of the classes it is an instance of is tested first.
function(generate_exceptions directory kind result)
  read_table(${EXCEPTIONS} names)
  set(sources "")
  set(base Exception)
  list(REVERSE names)
  foreach(name IN LISTS names)
    set(path ${directory}/hla/rti1516e/exceptions/${name}.java)
    file(CONFIGURE OUTPUT ${path} @ONLY CONTENT
"package hla.rti1516e.exceptions;

public class @name@ extends @base@ {
   private static final long serialVersionUID = 1L;

   public @name@(String message) {
      super(message);
   }
}
")
    list(APPEND sources ${path})
    if(kind STREQUAL "CHAINED")
      set(base ${name})
    endif()
  endforeach()
  set(${result} ${sources} PARENT_SCOPE)
endfunction()

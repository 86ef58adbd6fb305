// Values of the MIM's data types as words without blanks: :5 is an integer, 'text' a HLAunicodeString in
// which _ stands for blanks and of which only the first word is shown when it has many, #5 a handle, x00ff an
// array of bytes, (a,b) an array and a+b a record.
#ifndef RTI1516E_TESTS_SYSTEM_MANAGEMENTVALUES_H
#define RTI1516E_TESTS_SYSTEM_MANAGEMENTVALUES_H

#include <string>

namespace system_tests {

// The bytes; none for a word that has no such form.
std::string writtenManagementValue(std::string const& word);

// The word for what the bytes seem to be; an empty text for bytes that are characters.
std::string shownManagementValue(std::string const& bytes);

} // namespace system_tests

#endif

// Failures of the bridge's own setup are told twice: a person at the console reads why, even if the federate
// swallows the exception.
#pragma once

#include <string>

namespace tovu1516e {

// Writes the message to the standard error stream in narrow form and throws RTIinternalError with it. Advice
// on what to do, if any, is written as it stands on the lines behind it, and is no part of what is thrown.
[[noreturn]] void failSetup(std::wstring const& message, std::string const& advice = {});

// The narrow form of a message passes for a format without arguments: "%%" is written as "%", any other
// conversion as it stands.
std::string formatWithoutArguments(std::string const& format);

} // namespace tovu1516e

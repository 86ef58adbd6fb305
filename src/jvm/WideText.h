// The interface's wide strings (32 bits a character), and what they are in a Java string and in the bytes of
// environment variables, standard error and JNI.
#pragma once

#include <jni.h>

#include <string>

namespace tovu1516e {

// Gives the text of a Java string, empty for null. False if the VM has no memory to show it; no Java
// exception is pending in either case.
bool readJavaText(JNIEnv* env, jstring javaText, std::wstring& text);

// Bytes of an environment variable or a class path: each becomes the character of that number.
std::wstring widen(char const* bytes);

// The low 8 bits of each UTF-16 unit.
std::string narrow(std::wstring const& text);

// Texts in the encoding that JNI takes (modified UTF-8). Of bytes given as Latin-1 each becomes the character
// of its number; other narrow text is taken as UTF-8 if it is valid, else as Latin-1.
std::string jniTextOfLatin1(std::string const& bytes);
std::string jniTextOf(std::string const& text);

} // namespace tovu1516e

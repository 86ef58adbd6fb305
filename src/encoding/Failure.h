// The one way in which the encoding helpers fail, and what they say.
#pragma once

namespace rti1516e::failure {

inline constexpr wchar_t indexOutOfBounds[] = L"Index is out of bounds";
inline constexpr wchar_t arrayIndexOutOfBounds[] = L"Array index out of bounds";
inline constexpr wchar_t arrayTooShort[] = L"HLAvariableArray cannot decode (indata too short)";
inline constexpr wchar_t notLikePrototype[] = L"Element doesn't match prototype";
inline constexpr wchar_t typeMismatch[] = L"Non-matching type";
inline constexpr wchar_t nothingSelected[] = L"Discriminant is not mapped to a value";
inline constexpr wchar_t opaqueTooShort[] = L"HLAopaqueData cannot decode (indata too short)";
inline constexpr wchar_t externalTooSmall[] = L"Insufficient external storage";

inline constexpr wchar_t noElement[] = L"The pointer to the element is null";
inline constexpr wchar_t noData[] = L"The pointer to the data is null";
inline constexpr wchar_t dataBeyondBuffer[] = L"The data length is larger than the buffer length";
inline constexpr wchar_t tooLong[] = L"The encoding or a count in it does not fit into 32 bits";
inline constexpr wchar_t notInBasicPlane[] = L"A character beyond U+FFFF cannot be encoded as HLAunicodeChar";
inline constexpr wchar_t changedMeanwhile[] = L"An element was changed while it was encoded";

// Throws EncoderException. Out of line, so that what does not fail stays small.
[[noreturn, gnu::cold]] void raise(wchar_t const* message);

// What the pointer points to; fails if it is null.
template <class Object>
Object& required(Object* object, wchar_t const* message)
{
   if (object == nullptr) {
      raise(message);
   }
   return *object;
}

} // namespace rti1516e::failure

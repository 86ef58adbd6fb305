#include <RTI/Exception.h>

#include <ostream>
#include <utility>

namespace rti1516e {

Exception::Exception() = default;
Exception::Exception(Exception const&) = default;
Exception& Exception::operator=(Exception const&) = default;
Exception::~Exception() = default;

std::wostream& operator<<(std::wostream& stream, Exception const& exception)
{
   return stream << exception.what();
}

// The destructors stand here, out of line, so that each class has its run-time type in this library alone and
// is caught by its type in whatever shared object the handler stands. A message must survive a move onto
// itself, which std::wstring does not promise.
#define RTI_DEFINE_EXCEPTION(Name)                                                           \
   Name::Name(std::wstring const& message) : _message(message) {}                            \
   Name::Name(Name const& other) = default;                                                  \
   Name::Name(Name&& other) noexcept : Exception(other), _message(std::move(other._message)) \
   {                                                                                         \
      other._message.clear();                                                                \
   }                                                                                         \
   Name& Name::operator=(Name const& other) = default;                                       \
   Name& Name::operator=(Name&& other) noexcept                                              \
   {                                                                                         \
      if (this != &other) {                                                                  \
         Exception::operator=(other);                                                        \
         _message = std::move(other._message);                                               \
         other._message.clear();                                                             \
      }                                                                                      \
      return *this;                                                                          \
   }                                                                                         \
   Name::~Name() = default;                                                                  \
   std::wstring Name::what() const { return _message; }

RTI_FOR_EACH_EXCEPTION(RTI_DEFINE_EXCEPTION)

} // namespace rti1516e

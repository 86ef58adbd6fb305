#include "src/encoding/BasicBody.h"
#include "src/encoding/ElementOperations.h"

#include <RTI/encoding/BasicDataElements.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace rti1516e {

namespace {

// A text goes to the end of a buffer as it is, whose octets need not be cleared before.
void encodeAtEnd(BasicBody<HLAASCIIstring> const& body, std::vector<char>& buffer)
{
   std::string const& text = body.value();
   std::uint32_t const count = checkedCount(text.size());
   std::size_t const index = alignUp(buffer.size(), TraitsOf<HLAASCIIstring>::boundary);
   std::size_t const size = index + 4 + text.size();
   if (size > buffer.capacity()) {
      buffer.reserve(std::max(size, 2 * buffer.size()));
   }
   buffer.resize(index + 4);
   storeBigEndian(buffer.data() + index, count);
   buffer.insert(buffer.end(), text.begin(), text.end());
}

} // namespace

#define RTI_DEFINE_BASIC_ELEMENT(Name, Type)                                                               \
   static_assert(std::is_same_v<TraitsOf<Name>::Value, Type>, #Name " and its traits disagree");           \
                                                                                                           \
   Name::Name() : _body(new BasicBody<Name>(Type())) {}                                                    \
   Name::Name(Type const& value) : _body(new BasicBody<Name>(value)) {}                                    \
   Name::Name(Type* data) : _body(new BasicBody<Name>(data)) {}                                            \
   Name::Name(Name const& other) : DataElement(other), _body(new BasicBody<Name>(other._body->value())) {} \
   Name::Name(BasicBody<Name>& body) noexcept : _body(&body) {}                                            \
   Name::~Name() { delete _body; }                                                                         \
                                                                                                           \
   Name& Name::operator=(Name const& other) { return *this = other._body->value(); }                       \
   Name& Name::operator=(Type value)                                                                       \
   {                                                                                                       \
      _body->set(std::move(value));                                                                        \
      return *this;                                                                                        \
   }                                                                                                       \
   Name::operator Type() const { return _body->value(); }                                                  \
                                                                                                           \
   RTI_DEFINE_DATA_ELEMENT_OPERATIONS(Name)                                                                \
   Integer64 Name::hash() const { return _body->hash(); }                                                  \
                                                                                                           \
   void Name::setDataPointer(Type* data) { _body->use(data); }                                             \
   void Name::set(Type value) { _body->set(std::move(value)); }                                            \
   Type Name::get() const { return _body->value(); }

RTI_FOR_EACH_BASIC_ELEMENT(RTI_DEFINE_BASIC_ELEMENT)

} // namespace rti1516e

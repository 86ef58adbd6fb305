// The library's way into its own elements.
#pragma once

#include <new>

namespace rti1516e {

struct ElementAccess
{
   template <class Element>
   static auto& body(Element& element) noexcept
   {
      return *element._body;
   }

   // Makes an element in given memory upon a body that somebody else owns, and takes it away again.
   template <class Element, class Body>
   static Element* place(void* memory, Body& body) noexcept
   {
      return new (memory) Element(body);
   }
   template <class Element>
   static void remove(Element* element) noexcept
   {
      element->_body = nullptr;
      element->Element::~Element();
   }
};

} // namespace rti1516e

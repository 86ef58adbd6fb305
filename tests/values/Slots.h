// The order of the virtual functions in a class, which federates are built against.
#pragma once

#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

#if defined(__x86_64__)
#define RTI1516E_SLOT_ORDER_IS_KNOWN
#endif

// The virtual functions of a class in the order in which they are expected.
template <class Class>
class Slots
{
public:
   // The type of the function tells overloads apart.
   template <class Result, class... Arguments>
   Slots& add(Result (Class::*function)(Arguments...))
   {
      return addPointer(function);
   }

   template <class Result, class... Arguments>
   Slots& addConst(Result (Class::*function)(Arguments...) const)
   {
      return addPointer(function);
   }

   // The destructor has the first two slots.
   void expectInOrder() const
   {
      std::vector<std::size_t> expected(_slots.size());
      std::iota(expected.begin(), expected.end(), 2U);
      EXPECT_EQ(_slots, expected);
   }

private:
   // A pointer to a virtual function holds one more than the offset of the function's slot.
   template <class Function>
   Slots& addPointer(Function function)
   {
      std::size_t offsetAndOne;
      std::memcpy(&offsetAndOne, &function, sizeof offsetAndOne);
      _slots.push_back((offsetAndOne - 1) / sizeof(void*));
      return *this;
   }

   std::vector<std::size_t> _slots;
};

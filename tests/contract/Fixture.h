// An ambassador with the recording core behind it.
#pragma once

#include "Caught.h"
#include "RecordingCore.h"
#include "RecordingFederate.h"
#include "TestTime.h"

#include <RTI/RTIambassadorFactory.h>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace contract {

inline std::unique_ptr<RTIambassador> newAmbassador()
{
   return std::unique_ptr<RTIambassador>(RTIambassadorFactory().createRTIambassador().release());
}

// Has connected, which is how the core learns by which token the federate is to be called.
class Member
{
public:
   Member()
   {
      RecordingCore::instance().forget();
      ambassador->connect(federate, HLA_EVOKED);
      token = RecordingCore::instance().calls().back().message.value().leadingInt();
   }

   // Joins a federation with that time implementation.
   void join(std::u16string const& timeImplementation)
   {
      auto& core = RecordingCore::instance();
      core.answer("getTimeFactory", timeImplementation);
      ambassador->joinFederationExecution(L"type", L"federation");
      core.forget();
   }

   Bytes message(Bytes const& arguments) const
   {
      return Bytes("63626160").int32(token).append(arguments).append(Bytes("59585756"));
   }

   std::unique_ptr<RTIambassador> ambassador = newAmbassador();
   RecordingFederate federate;
   std::uint32_t token = 0;
};

class ContractTest : public testing::Test
{
protected:
   ContractTest() { member.join(u"TestTime"); }
   ~ContractTest() override
   {
      Faults::clear();
      core.forget();
   }

   Member member;
   RTIambassador& rti = *member.ambassador;
   RecordingCore& core = RecordingCore::instance();
};

} // namespace contract

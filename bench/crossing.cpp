// What services and callbacks cost on top of the crossing into Java and back.
#include "api/BigEndian.h"
#include "bench/Floor.h"
#include "bench/Ratios.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Time.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {
namespace {

using namespace rti1516e;
using Bytes = std::vector<unsigned char>;

void putWord(Bytes& to, std::uint32_t word)
{
   unsigned char bytes[4];
   storeBigEndian(bytes, word);
   to.insert(to.end(), bytes, bytes + 4);
}

template <class Handle>
Handle handle(RTIambassador& ambassador, std::uint32_t number,
              Handle (RTIambassador::*decode)(VariableLengthData const&) const)
{
   unsigned char bytes[4];
   storeBigEndian(bytes, number);
   return (ambassador.*decode)(VariableLengthData(bytes, 4));
}

// Values as they are sent: so many, of so many bytes each.
struct Values
{
   std::size_t count;
   std::size_t size;

   std::string name() const { return std::to_string(count) + "x" + std::to_string(size); }
   // Object or interaction class, the map, an empty tag.
   std::size_t messageSize() const { return 4 + 4 + count * (8 + size) + 4; }

   template <class Map, class Decode>
   Map map(RTIambassador& ambassador, Decode decode) const
   {
      Map values;
      std::vector<char> const bytes(size, 'v');
      for (std::uint32_t i = 1; i <= count; ++i) {
         values[handle(ambassador, i, decode)] =
            VariableLengthData(bytes.data(), static_cast<unsigned int>(size));
      }
      return values;
   }
};

Values const updates[] = {{1, 8}, {10, 8}, {100, 8}, {1, 1 << 20}};
Values const parameters{5, 8};

double boundOfService(std::size_t messageSize) { return messageSize > 1024 ? 1.05 : 1.15; }

class Crossing
{
public:
   Crossing()
   {
      _ambassador->connect(_federate, HLA_EVOKED);
      _ambassador->joinFederationExecution(L"benchmark", L"benchmark");
      registerFloorNatives(_federate, _factory);
      addServices();
      addCallbacks();
   }

   std::vector<Claim> const& claims() const { return _claims; }

private:
   void measure(std::string const& name, std::function<void()> const& action, bool threads = false)
   {
      auto* const added = benchmark::RegisterBenchmark(name.c_str(), [action](benchmark::State& state) {
         for (auto _ : state) {
            action();
         }
      });
      added->UseRealTime();
      if (threads) {
         added->Threads(1)->Threads(2)->Threads(4)->Threads(8);
      }
   }

   void compare(std::string const& name, double bound, std::function<void()> const& library,
                std::function<void()> const& floor)
   {
      measure(name, library);
      measure(name + " floor", floor);
      _claims.push_back({name, name + " floor", bound});
   }

   void addServices()
   {
      RTIambassador& ambassador = *_ambassador;
      VariableLengthData const noTag;

      ServiceFloor const bare("enableCallbacks", "()V", 0);
      compare(
         "enableCallbacks", 1.15, [&] { ambassador.enableCallbacks(); }, [=] { bare.callVoid(); });

      std::wstring const className = L"HLAobjectRoot.Aircraft.Rotorcraft";
      ServiceFloor const lookUp("getObjectClassHandle_S", "([B)I", 4 + 2 * className.size());
      compare(
         "getObjectClassHandle", 1.15, [&, className] { ambassador.getObjectClassHandle(className); },
         [=] { benchmark::DoNotOptimize(lookUp.callInt()); });

      ObjectInstanceHandle const object;
      ServiceFloor const name("getObjectInstanceName_OIH", "([B)Ljava/lang/String;", 4);
      compare(
         "getObjectInstanceName", 1.15,
         [&, object] { benchmark::DoNotOptimize(ambassador.getObjectInstanceName(object)); },
         [=] { benchmark::DoNotOptimize(name.callText()); });

      ServiceFloor const time("queryLogicalTime", "()[B", 0);
      compare(
         "queryLogicalTime", 1.15, [&] { ambassador.queryLogicalTime(); }, [=] { time.callTime(_factory); });

      for (Values const& values : updates) {
         auto const map =
            values.map<AttributeHandleValueMap>(ambassador, &RTIambassador::decodeAttributeHandle);
         std::size_t const size = values.messageSize();
         ServiceFloor const update("updateAttributeValues_OIH_AHVM_BX", "([B)V", size);
         compare(
            "updateAttributeValues " + values.name(), boundOfService(size),
            [&ambassador, map, noTag] {
               ambassador.updateAttributeValues(ObjectInstanceHandle(), map, noTag);
            },
            [=] { update.callVoid(); });
         ServiceFloor const timed("updateAttributeValues_OIH_AHVM_BX_LT", "([B)[B", size + 8);
         compare(
            "updateAttributeValues " + values.name() + " time", boundOfService(size + 8),
            [&ambassador, map, noTag] {
               ambassador.updateAttributeValues(ObjectInstanceHandle(), map, noTag, HLAinteger64Time(5));
            },
            [=] { timed.callMessageHandle(); });
      }

      auto const sent =
         parameters.map<ParameterHandleValueMap>(ambassador, &RTIambassador::decodeParameterHandle);
      ServiceFloor const send("sendInteraction_ICH_PHVM_BX", "([B)V", parameters.messageSize());
      compare(
         "sendInteraction " + parameters.name(), 1.15,
         [&ambassador, sent, noTag] { ambassador.sendInteraction(InteractionClassHandle(), sent, noTag); },
         [=] { send.callVoid(); });

      measure(
         "threads", [&] { ambassador.enableCallbacks(); }, true);
      measure(
         "threads floor", [=] { bare.callVoid(); }, true);
      for (char const* const threads : {"1", "2", "4", "8"}) {
         std::string const suffix = std::string("/real_time/threads:") + threads;
         _claims.push_back({"threads" + suffix, "threads floor" + suffix, 1.1});
      }
   }

   Bytes envelope(Bytes const& arguments) const
   {
      JNIEnv* const env = environment();
      jclass const core = env->FindClass("morva/tovu1516e/RTIambassadorC2007");
      jint const token = env->GetStaticIntField(core, env->GetStaticFieldID(core, "context", "I"));
      Bytes message;
      putWord(message, 0x63626160);
      putWord(message, static_cast<std::uint32_t>(token));
      message.insert(message.end(), arguments.begin(), arguments.end());
      putWord(message, 0x59585756);
      return message;
   }

   // The arguments of a reflection or an interaction without time.
   static Bytes arguments(Values const& values)
   {
      Bytes bytes;
      putWord(bytes, 1);
      putWord(bytes, static_cast<std::uint32_t>(values.count));
      for (std::uint32_t i = 1; i <= values.count; ++i) {
         putWord(bytes, i);
         putWord(bytes, static_cast<std::uint32_t>(values.size));
         bytes.insert(bytes.end(), values.size, 'v');
      }
      putWord(bytes, 0); // no tag
      putWord(bytes, 0); // receive order
      putWord(bytes, 1); // reliable
      putWord(bytes, 0); // no producing federate
      putWord(bytes, 0); // no regions
      return bytes;
   }

   void compareCallback(std::string const& name, double bound, char const* library, char const* floor,
                        Bytes const& message)
   {
      CallbackLoop const libraryLoop(library, message);
      CallbackLoop const floorLoop(floor, message);
      compare(
         name, bound, [=] { libraryLoop.run(); }, [=] { floorLoop.run(); });
   }

   void addCallbacks()
   {
      Bytes const time = envelope({0, 0, 0, 0, 0, 0, 0, 7});
      compareCallback("timeAdvanceGrant", 1.5, "timeAdvanceGrant", "time", time);
      compareCallback("timeAdvanceGrant, bare pin", 0, "timeAdvanceGrant", "pinAndUnpin", time);
      compareCallback("receiveInteraction " + parameters.name(), 1.5, "receiveInteraction", "values",
                      envelope(arguments(parameters)));
      for (Values const& values : updates) {
         compareCallback("reflectAttributeValues " + values.name(), values.count >= 10 ? 1.15 : 1.5,
                         "reflectAttributeValues", "values", envelope(arguments(values)));
      }
   }

   NullFederateAmbassador _federate;
   HLAinteger64TimeFactory _factory;
   std::unique_ptr<RTIambassador> _ambassador{RTIambassadorFactory().createRTIambassador().release()};
   std::vector<Claim> _claims;
};

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
   setenv("CLASSPATH", NULL_CORE_JAR, 1);
   bench::Crossing crossing;
   return bench::run(argc, argv, crossing.claims());
}

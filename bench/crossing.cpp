// What services and callbacks cost on top of the crossing into Java and back.
#include "bench/Floor.h"
#include "bench/Ratios.h"
#include "src/values/BigEndian.h"

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

using Action = std::function<void()>;

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
   // Measures an action that does so many calls.
   static benchmark::internal::Benchmark* measure(std::string const& name, Action const& action,
                                                  int calls = 1)
   {
      return benchmark::RegisterBenchmark(name.c_str(), [action, calls](benchmark::State& state) {
         while (state.KeepRunningBatch(calls)) {
            action();
         }
      });
   }

   void compare(std::string const& name, double bound, Action const& library, Action const& floor,
                int calls = 1)
   {
      measure(name, library, calls);
      measure(name + " floor", floor, calls);
      _claims.push_back({name, name + " floor", bound});
   }

   // A service against the bare crossing, and against what any caller has to do.
   void compareService(std::string const& name, double bound, Action const& library, Action const& bare,
                       Action const& byHand)
   {
      compare(name, bound, library, bare);
      measure(name + " by hand", byHand);
      _claims.push_back({name, name + " by hand", 0});
   }

   // How the times grow with the number of threads that call at once.
   void compareThreads(std::string const& name, Action const& library, Action const& floor)
   {
      std::string const measured = name + ", threads";
      for (auto* const benchmark : {measure(measured, library), measure(measured + " floor", floor)}) {
         benchmark->Threads(1)->Threads(2)->Threads(4)->Threads(8);
      }
      std::string const one = "/threads:1";
      for (char const* const count : {"/threads:2", "/threads:4", "/threads:8"}) {
         _claims.push_back(
            {measured + count, measured + " floor" + count, 1.1, measured + one, measured + " floor" + one});
      }
   }

   void addServices()
   {
      RTIambassador& ambassador = *_ambassador;
      VariableLengthData const noTag;

      ServiceFloor const enable("enableCallbacks", "()V", 0);
      ServiceByHand const enableByHand("enableCallbacks", "()V");
      Action const enableCallbacks = [&] { ambassador.enableCallbacks(); };
      compareService(
         "enableCallbacks", 1.15, enableCallbacks, [=] { enable.callVoid(); },
         [=] { enableByHand.callVoid(); });
      compareThreads("enableCallbacks", enableCallbacks, [=] { enable.callVoid(); });

      std::wstring const className = L"HLAobjectRoot.Aircraft.Rotorcraft";
      ServiceFloor const lookUp("getObjectClassHandle_S", "([B)I", 4 + 2 * className.size());
      ServiceByHand const lookUpByHand("getObjectClassHandle_S", "([B)I");
      compareService(
         "getObjectClassHandle", 1.15, [&, className] { ambassador.getObjectClassHandle(className); },
         [=] { benchmark::DoNotOptimize(lookUp.callInt()); },
         [=] { benchmark::DoNotOptimize(lookUpByHand.callInt(className)); });

      ObjectInstanceHandle const object;
      ServiceFloor const name("getObjectInstanceName_OIH", "([B)Ljava/lang/String;", 4);
      ServiceByHand const nameByHand("getObjectInstanceName_OIH", "([B)Ljava/lang/String;");
      compareService(
         "getObjectInstanceName", 1.15,
         [&, object] { benchmark::DoNotOptimize(ambassador.getObjectInstanceName(object)); },
         [=] { benchmark::DoNotOptimize(name.callText()); },
         [=] { benchmark::DoNotOptimize(nameByHand.callText(object)); });

      ServiceFloor const query("queryLogicalTime", "()[B", 0);
      ServiceByHand const queryByHand("queryLogicalTime", "()[B");
      compareService(
         "queryLogicalTime", 1.15, [&] { ambassador.queryLogicalTime(); },
         [this, query] { query.callTime(_factory); },
         [this, queryByHand] { queryByHand.callTime(_factory); });

      for (Values const& values : updates) {
         addUpdates(values, object, noTag);
      }

      InteractionClassHandle const interaction;
      auto const sent =
         parameters.map<ParameterHandleValueMap>(ambassador, &RTIambassador::decodeParameterHandle);
      ServiceFloor const send("sendInteraction_ICH_PHVM_BX", "([B)V", parameters.messageSize());
      ServiceByHand const sendByHand("sendInteraction_ICH_PHVM_BX", "([B)V");
      compareService(
         "sendInteraction " + parameters.name(), 1.15,
         [&ambassador, interaction, sent, noTag] { ambassador.sendInteraction(interaction, sent, noTag); },
         [=] { send.callVoid(); }, [=] { sendByHand.send(interaction, sent); });
   }

   void addUpdates(Values const& values, ObjectInstanceHandle object, VariableLengthData const& noTag)
   {
      RTIambassador& ambassador = *_ambassador;
      auto const map = values.map<AttributeHandleValueMap>(ambassador, &RTIambassador::decodeAttributeHandle);
      std::string const name = "updateAttributeValues " + values.name();
      std::size_t const size = values.messageSize();

      char const* const method = "updateAttributeValues_OIH_AHVM_BX";
      ServiceFloor const update(method, "([B)V", size);
      ServiceByHand const updateByHand(method, "([B)V");
      Action const updateAttributeValues = [&ambassador, object, map, noTag] {
         ambassador.updateAttributeValues(object, map, noTag);
      };
      compareService(
         name, boundOfService(size), updateAttributeValues, [=] { update.callVoid(); },
         [=] { updateByHand.send(object, map); });
      if (size < 100) {
         compareThreads(name, updateAttributeValues, [=] { update.callVoid(); });
      }

      char const* const timedMethod = "updateAttributeValues_OIH_AHVM_BX_LT";
      std::size_t const timedSize = size + _time.encodedLength();
      ServiceFloor const timed(timedMethod, "([B)[B", timedSize);
      ServiceByHand const timedByHand(timedMethod, "([B)[B");
      compareService(
         name + " time", boundOfService(timedSize),
         [this, &ambassador, object, map, noTag] {
            benchmark::DoNotOptimize(ambassador.updateAttributeValues(object, map, noTag, _time));
         },
         [=] { timed.callMessageHandle(); },
         [this, object, map, timedByHand] {
            benchmark::DoNotOptimize(timedByHand.send(object, map, _time));
         });
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
         name, bound, [=] { libraryLoop.run(); }, [=] { floorLoop.run(); }, CallbackLoop::times);
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
   HLAinteger64Time const _time{5};
   std::unique_ptr<RTIambassador> _ambassador{RTIambassadorFactory().createRTIambassador().release()};
   std::vector<Claim> _claims;
};

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
   setenv("CLASSPATH", NULL_CORE_JAR, 1);
   // A heap whose pages are all there from the start: that the system makes them is not the crossing's.
   setenv("TOVU1516_OPTION1", "-Xms128m", 0);
   setenv("TOVU1516_OPTION2", "-Xmx128m", 0);
   setenv("TOVU1516_OPTION3", "-XX:+AlwaysPreTouch", 0);
   bench::Crossing crossing;
   return bench::run(argc, argv, crossing.claims());
}

// Two federates in one process, each on a thread of its own, meet in a federation: they synchronise, save,
// resign and go. Ada evokes her callbacks, Ben gets his on a thread of the infrastructure's.
//
// Usage: meeting FOM-MODULE, with CLASSPATH naming the jar of the infrastructure's core.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <chrono>
#include <clocale>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace rti1516e;

std::wstring const federationName = L"Meeting";
std::wstring const readyPoint = L"everybody is here";
std::wstring const saveLabel = L"after the greeting";

void say(std::wstring const& who, std::wstring const& what)
{
   static std::mutex oneAtATime;
   std::lock_guard<std::mutex> const lock(oneAtATime);
   std::wcout << who << L": " << what << std::endl;
}

class Participant : private NullFederateAmbassador
{
public:
   Participant(std::wstring const& name, CallbackModel model) : _name(name), _model(model)
   {
      _ambassador->connect(*this, model);
      say(_name,
          model == HLA_EVOKED ? L"connected, will evoke callbacks" : L"connected, gets callbacks at once");
   }

   void create(std::wstring const& fomModule)
   {
      _ambassador->createFederationExecution(federationName, fomModule);
      _ambassador->listFederationExecutions();
      await(L"the list of federations");
   }

   void join()
   {
      FederateHandle const handle =
         _ambassador->joinFederationExecution(_name, L"participant", federationName);
      say(_name,
          L"joined as " + handle.toString() + L", time is " + _ambassador->getTimeFactory()->getName());
   }

   void callTheMeeting()
   {
      char const tag[] = "please come in";
      _ambassador->registerFederationSynchronizationPoint(readyPoint,
                                                          VariableLengthData(tag, sizeof tag - 1));
      await(L"registered: " + readyPoint);
   }

   void meet()
   {
      await(L"announced: " + readyPoint);
      _ambassador->synchronizationPointAchieved(readyPoint);
      await(L"synchronized: " + readyPoint);
   }

   void askForASave() { _ambassador->requestFederationSave(saveLabel); }

   void save()
   {
      await(L"save: " + saveLabel);
      _ambassador->federateSaveBegun();
      _ambassador->federateSaveComplete();
      await(L"saved");
   }

   void resign()
   {
      _ambassador->resignFederationExecution(NO_ACTION);
      say(_name, L"resigned");
   }

   void destroy()
   {
      _ambassador->destroyFederationExecution(federationName);
      say(_name, L"destroyed the federation");
   }

   void disconnect()
   {
      _ambassador->disconnect();
      say(_name, L"disconnected");
   }

private:
   void reportFederationExecutions(FederationExecutionInformationVector const& executions) override
   {
      for (auto const& execution : executions) {
         say(_name, L"sees federation " + execution.federationExecutionName + L" in " +
                       execution.logicalTimeImplementationName);
      }
      happened(L"the list of federations");
   }
   void synchronizationPointRegistrationSucceeded(std::wstring const& label) override
   {
      happened(L"registered: " + label);
   }
   void synchronizationPointRegistrationFailed(std::wstring const& label,
                                               SynchronizationPointFailureReason) override
   {
      happened(L"not registered: " + label);
   }
   void announceSynchronizationPoint(std::wstring const& label, VariableLengthData const& tag) override
   {
      char const* const text = static_cast<char const*>(tag.data());
      say(_name, L"is told \"" + std::wstring(text, text + tag.size()) + L"\"");
      happened(L"announced: " + label);
   }
   void federationSynchronized(std::wstring const& label, FederateHandleSet const& failed) override
   {
      happened((failed.empty() ? L"synchronized: " : L"synchronized with failures: ") + label);
   }
   void initiateFederateSave(std::wstring const& label) override { happened(L"save: " + label); }
   void federationSaved() override { happened(L"saved"); }
   void federationNotSaved(SaveFailureReason) override { happened(L"not saved"); }

   void happened(std::wstring const& event)
   {
      say(_name, event);
      std::lock_guard<std::mutex> const lock(_mutex);
      _events.insert(event);
      _news.notify_all();
   }

   bool hasHappened(std::wstring const& event) const { return _events.count(event) != 0; }

   // Waits for a callback in the way of the callback model.
   void await(std::wstring const& event)
   {
      auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
      std::unique_lock<std::mutex> lock(_mutex);
      while (!hasHappened(event)) {
         if (std::chrono::steady_clock::now() > deadline) {
            say(_name, L"waited in vain for \"" + event + L"\"");
            throw std::runtime_error("a callback did not arrive");
         }
         if (_model == HLA_EVOKED) {
            lock.unlock();
            _ambassador->evokeMultipleCallbacks(0.1, 1.0);
            lock.lock();
         } else {
            _news.wait_until(lock, deadline);
         }
      }
   }

   std::wstring const _name;
   CallbackModel const _model;
   std::mutex _mutex;
   std::condition_variable _news;
   std::set<std::wstring> _events;
   std::unique_ptr<RTIambassador> _ambassador{RTIambassadorFactory().createRTIambassador().release()};
};

// As the environment says that texts are encoded.
std::wstring widened(char const* text)
{
   std::wstring wide(std::strlen(text), L'\0');
   std::size_t const size = std::mbstowcs(&wide[0], text, wide.size());
   if (size > wide.size()) {
      throw std::invalid_argument(std::string(text) + " is no text in this locale; set LC_ALL to C.UTF-8");
   }
   wide.resize(size);
   return wide;
}

// Runs each participant's part on a thread of its own and passes on what goes wrong.
void together(std::vector<Participant*> const& participants, void (*part)(Participant&, bool first))
{
   std::vector<std::exception_ptr> failures(participants.size());
   std::vector<std::thread> threads;
   for (std::size_t i = 0; i < participants.size(); ++i) {
      threads.emplace_back([&, i] {
         try {
            part(*participants[i], i == 0);
         } catch (...) {
            failures[i] = std::current_exception();
         }
      });
   }
   for (auto& thread : threads) {
      thread.join();
   }
   for (auto const& failure : failures) {
      if (failure) {
         std::rethrow_exception(failure);
      }
   }
}

void run(std::wstring const& fomModule)
{
   Participant ada(L"Ada", HLA_EVOKED);
   Participant ben(L"Ben", HLA_IMMEDIATE);
   ada.create(fomModule);
   ada.join();
   ben.join();
   together({&ada, &ben}, [](Participant& participant, bool first) {
      if (first) {
         participant.callTheMeeting();
      }
      participant.meet();
      if (first) {
         participant.askForASave();
      }
      participant.save();
      participant.resign();
   });
   ada.destroy();
   ada.disconnect();
   ben.disconnect();
}

} // namespace

int main(int argc, char* argv[])
{
   std::setlocale(LC_ALL, "");
   if (argc != 2) {
      std::cerr << "usage: meeting FOM-MODULE\n";
      return 2;
   }
   try {
      run(widened(argv[1]));
   } catch (rti1516e::Exception const& exception) {
      std::wcerr << L"The infrastructure says: " << exception.what() << std::endl;
      return 1;
   } catch (std::exception const& exception) {
      std::cerr << exception.what() << std::endl;
      return 1;
   }
   std::wcout << L"Both met, saved and left: the federation ran from end to end." << std::endl;
   return 0;
}

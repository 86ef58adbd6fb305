package recording;

import java.lang.ref.WeakReference;
import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.List;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import morva.tovu1516e.FederateAmbassadorC2007;

/**
 * What a test sees of the recording core, and how it tells the core what to do. Every method of the core's
 * ambassador ends in {@link #answer}.
 */
public final class Recorder {
   /** As many calls as are kept: a test that makes more looks at none of them. */
   private static final int KEPT_CALLS = 16;

   private static final Map<String, Object> answers = new ConcurrentHashMap<>();
   private static final Deque<Call> calls = new ArrayDeque<>();
   private static final List<Watched> watched = new ArrayList<>();
   private static boolean watching;
   private static Throwable pending;

   private Recorder() {}

   private record Call(Object peer, String method, byte[] message) {}

   private record Watched(String what, WeakReference<Object> reference) {}

   /** An answer that first delivers a callback, as a core does while callbacks are evoked. */
   private record Delivery(String callback, byte[] message, int times, boolean onJavaThread) {
      /** What the native left pending the last time it was called, null if nothing. */
      Throwable run() throws InterruptedException {
         if (!onJavaThread) {
            return callAll();
         }
         Throwable[] left = new Throwable[1];
         Thread thread = new Thread(() -> left[0] = callAll());
         thread.start();
         thread.join();
         return left[0];
      }

      private Throwable callAll() {
         Throwable left = null;
         FederateAmbassadorC2007 federateAmbassador = new FederateAmbassadorC2007();
         for (int i = 0; i < times; ++i) {
            left = null;
            try {
               federateAmbassador.call(callback, message);
            } catch (Throwable thrown) {
               left = thrown;
            }
         }
         return left;
      }
   }

   /** Called by every service: records the call and does what the test has told it to. */
   @SuppressWarnings("unchecked")
   public static <T> T answer(Object peer, String method, byte[] message, T otherwise) {
      synchronized (calls) {
         if (calls.size() == KEPT_CALLS) {
            calls.removeFirst();
         }
         calls.addLast(new Call(peer, method, message));
         watch(method + ": message", message);
      }
      Object answer = answers.get(method);
      if (answer instanceof Delivery delivery) {
         try {
            pending = delivery.run();
         } catch (InterruptedException interrupted) {
            throw new IllegalStateException(interrupted);
         }
         return otherwise;
      }
      if (answer instanceof Throwable thrown) {
         Recorder.<RuntimeException>raise(thrown);
      }
      return answer == null ? otherwise : (T) answer;
   }

   /** What the constructor of the core's ambassador does, as the system property says. */
   public static void constructed(Object peer, byte[] message) throws Throwable {
      watch("ambassador", peer);
      answer(peer, "<init>", message, null);
      String failure = System.getProperty("recording.constructor");
      if (failure != null) {
         int colon = failure.indexOf(':');
         throw colon < 0 ? exception(failure, null)
                         : exception(failure.substring(0, colon), failure.substring(colon + 1));
      }
   }

   // From here on: called by tests

   static void answerWith(String method, Object answer) {
      if (answer == null) {
         answers.remove(method);
      } else {
         answers.put(method, answer);
         watch(method + ": answer", answer);
      }
   }

   static void answerWith(String method, int answer) {
      answers.put(method, answer);
   }

   static void answerWith(String method, boolean answer) {
      answers.put(method, answer);
   }

   static void answerWith(String method, long answer) {
      answers.put(method, answer);
   }

   static void answerWith(String method, double answer) {
      answers.put(method, answer);
   }

   static Throwable exception(String className, String message) throws ReflectiveOperationException {
      return (Throwable) Class.forName(className).getConstructor(String.class).newInstance(message);
   }

   static Object delivery(String callback, byte[] message, int times, boolean onJavaThread) {
      return new Delivery(callback, message, times, onJavaThread);
   }

   static Throwable deliver(String callback, byte[] message, int times, boolean onJavaThread)
         throws InterruptedException {
      return new Delivery(callback, message, times, onJavaThread).run();
   }

   /** What the callback of an answer left pending. */
   static Throwable pending() {
      return pending;
   }

   static int calls() {
      synchronized (calls) {
         return calls.size();
      }
   }

   private static Call call(int index) {
      synchronized (calls) {
         return calls.stream().skip(index).findFirst().orElseThrow();
      }
   }

   static String method(int index) {
      return call(index).method();
   }

   static byte[] message(int index) {
      return call(index).message();
   }

   static int peer(int index) {
      return System.identityHashCode(call(index).peer());
   }

   static String property(String name) {
      return System.getProperty(name);
   }

   /** Forgets calls and answers. */
   static void forget() {
      answers.clear();
      pending = null;
      synchronized (calls) {
         calls.clear();
      }
   }

   /** From now on remembers, without holding on to it, every object that crosses the boundary. */
   static void watchReferences() {
      synchronized (watched) {
         watched.clear();
         watching = true;
      }
   }

   private static void watch(String what, Object object) {
      synchronized (watched) {
         if (watching && object != null) {
            watched.add(new Watched(what, new WeakReference<>(object)));
         }
      }
   }

   /** Names the remembered objects that somebody still holds on to after all was forgotten here. */
   static String heldReferences() {
      forget();
      System.gc();
      StringBuilder held = new StringBuilder();
      synchronized (watched) {
         watching = false;
         for (Watched each : watched) {
            if (each.reference().get() != null) {
               held.append(each.what()).append('\n');
            }
         }
         watched.clear();
      }
      return held.toString();
   }

   @SuppressWarnings("unchecked")
   private static <E extends Throwable> void raise(Throwable thrown) throws E {
      throw (E) thrown;
   }
}

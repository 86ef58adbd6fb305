package recording;

import java.io.ByteArrayInputStream;
import java.io.ByteArrayOutputStream;
import java.io.DataInputStream;
import java.io.DataOutputStream;
import java.io.IOException;
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

   /** Whatever a test says or asks: a word and its arguments, with counts before texts and arrays. */
   static byte[] ask(byte[] request) throws ReflectiveOperationException, InterruptedException, IOException {
      DataInputStream from = new DataInputStream(new ByteArrayInputStream(request));
      ByteArrayOutputStream reply = new ByteArrayOutputStream();
      DataOutputStream to = new DataOutputStream(reply);
      String question = readText(from);
      switch (question) {
         case "answer" -> answerWith(readText(from), readAnswer(from));
         case "calls" -> writeCalls(to);
         case "forget" -> forget();
         case "deliver" -> writeException(to, readDelivery(from).run());
         case "pending" -> writeException(to, pending); // what the callback of an answer left
         case "watch references" -> watchReferences();
         case "held references" -> writeText(to, heldReferences());
         case "property" -> writeOptionalText(to, System.getProperty(readText(from)));
         default -> throw new IllegalArgumentException(question);
      }
      return reply.toByteArray();
   }

   private static void answerWith(String method, Object answer) {
      if (answer == null) {
         answers.remove(method);
      } else {
         answers.put(method, answer);
         if (!(answer instanceof Number || answer instanceof Boolean)) { // of which Java has its own
            watch(method + ": answer", answer);
         }
      }
   }

   private static Object readAnswer(DataInputStream from) throws ReflectiveOperationException, IOException {
      String type = readText(from);
      return switch (type) {
         case "null" -> null;
         case "I" -> from.readInt();
         case "Z" -> from.readBoolean();
         case "J" -> from.readLong();
         case "D" -> from.readDouble();
         case "[B" -> from.readNBytes(from.readInt());
         case "[I" -> {
            int[] values = new int[from.readInt()];
            for (int i = 0; i < values.length; ++i) {
               values[i] = from.readInt();
            }
            yield values;
         }
         case "[J" -> {
            long[] values = new long[from.readInt()];
            for (int i = 0; i < values.length; ++i) {
               values[i] = from.readLong();
            }
            yield values;
         }
         case "String" -> readText(from);
         case "exception" -> exception(readText(from), from.readBoolean() ? readText(from) : null);
         case "delivery" -> readDelivery(from);
         default -> throw new IllegalArgumentException(type);
      };
   }

   private static Delivery readDelivery(DataInputStream from) throws IOException {
      return new Delivery(readText(from), from.readNBytes(from.readInt()), from.readInt(), from.readBoolean());
   }

   private static String readText(DataInputStream from) throws IOException {
      char[] units = new char[from.readInt()];
      for (int i = 0; i < units.length; ++i) {
         units[i] = from.readChar();
      }
      return new String(units);
   }

   private static void writeText(DataOutputStream to, String text) throws IOException {
      to.writeInt(text.length());
      to.writeChars(text);
   }

   private static void writeOptionalText(DataOutputStream to, String text) throws IOException {
      to.writeBoolean(text != null);
      if (text != null) {
         writeText(to, text);
      }
   }

   private static void writeException(DataOutputStream to, Throwable thrown) throws IOException {
      to.writeBoolean(thrown != null);
      if (thrown != null) {
         writeText(to, thrown.getClass().getName());
         writeOptionalText(to, thrown.getMessage());
      }
   }

   private static void writeCalls(DataOutputStream to) throws IOException {
      synchronized (calls) {
         to.writeInt(calls.size());
         for (Call call : calls) {
            writeText(to, call.method());
            to.writeInt(System.identityHashCode(call.peer()));
            to.writeBoolean(call.message() != null);
            if (call.message() != null) {
               to.writeInt(call.message().length);
               to.write(call.message());
            }
         }
      }
   }

   private static Throwable exception(String className, String message) throws ReflectiveOperationException {
      return (Throwable) Class.forName(className).getConstructor(String.class).newInstance(message);
   }

   /** Forgets calls and answers. */
   private static void forget() {
      answers.clear();
      pending = null;
      synchronized (calls) {
         calls.clear();
      }
   }

   /** From now on remembers, without holding on to it, every object that crosses the boundary. */
   private static void watchReferences() {
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
   private static String heldReferences() {
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

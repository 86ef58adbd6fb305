import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import tovu.local.delivery.CallbackDelivery;

/** When callbacks are delivered, on which thread, and what one that fails does to the others. */
final class DeliveryTest {
    private final CallbackDelivery delivery = CallbackDelivery.toContext(1, () -> null);
    private final List<String> delivered = Collections.synchronizedList(new ArrayList<>());

    public static void main(String[] arguments) {
        Harness harness = new Harness();
        harness.run("evoked", () -> new DeliveryTest().evoked());
        harness.run("waiting", () -> new DeliveryTest().waiting());
        harness.run("disabled", () -> new DeliveryTest().disabled());
        harness.run("failing", () -> new DeliveryTest().failing());
        harness.run("inside a callback", () -> new DeliveryTest().inside());
        harness.run("immediate", () -> new DeliveryTest().immediate());
        harness.run("membership", () -> new DeliveryTest().membership());
        harness.run("reminder", () -> reminder());
        harness.finish();
    }

    /** Only who has callbacks waiting and never evoked any is reminded, and that once. */
    private static void reminder() throws Exception {
        PrintStream console = System.err;
        ByteArrayOutputStream printed = new ByteArrayOutputStream();
        System.setErr(new PrintStream(printed, true));
        try {
            DeliveryTest forgetful = new DeliveryTest();
            forgetful.post("a");
            forgetful.post("b");
            DeliveryTest evoking = new DeliveryTest();
            evoking.post("a");
            evoking.delivery.evoke(0);
            evoking.post("b");
            DeliveryTest disabling = new DeliveryTest();
            disabling.delivery.setEnabled(false);
            disabling.post("a");
            Thread.sleep(1500);
        } finally {
            System.setErr(console);
        }
        String text = printed.toString();
        Harness.that(text.startsWith("A federate that is not joined has callbacks waiting and has evoked none for 1 s"),
                text);
        Harness.equal(text.lines().count(), 1L);
    }

    private void post(String name) {
        delivery.post(to -> delivered.add(name));
    }

    private static double seconds(Harness.Case body) throws Exception {
        long start = System.nanoTime();
        body.run();
        return (System.nanoTime() - start) / 1e9;
    }

    private void evoked() {
        Harness.that(!delivery.evoke(0), "nothing is pending");
        for (String name : List.of("a", "b", "c")) {
            post(name);
        }
        Harness.that(delivery.evoke(0), "more are pending");
        Harness.equal(delivered, List.of("a"));
        Harness.that(!delivery.evokeMultiple(0, 1), "all are delivered");
        Harness.equal(delivered, List.of("a", "b", "c"));
        post("d");
        post("e");
        Harness.that(delivery.evokeMultiple(0, 0), "no time is time for one");
        delivery.close();
        post("f");
        Harness.that(!delivery.evoke(Double.POSITIVE_INFINITY), "closed");
        Harness.equal(delivered.size(), 4);
    }

    private void waiting() throws Exception {
        double nothing = seconds(() -> delivery.evoke(0.05));
        Harness.that(nothing >= 0.045 && nothing < 5, "waited " + nothing);
        for (double odd : new double[] {-1, Double.NaN, Double.NEGATIVE_INFINITY}) {
            Harness.that(seconds(() -> delivery.evoke(odd)) < 1, "waited for " + odd);
        }
        Thread poster = new Thread(() -> {
            for (String name : List.of("a", "b")) {
                try {
                    Thread.sleep(30);
                } catch (InterruptedException e) {
                    throw new AssertionError(e);
                }
                post(name);
            }
        });
        poster.start();
        double one = seconds(() -> delivery.evoke(30));
        Harness.that(one < 10 && delivered.equals(List.of("a")), "a callback ends the wait: " + one);
        double multiple = seconds(() -> delivery.evokeMultiple(0.2, 30));
        Harness.that(multiple >= 0.19 && multiple < 10 && delivered.size() == 2, "until the minimum: " + multiple);
        poster.join();
    }

    private void disabled() {
        delivery.setEnabled(false);
        post("a");
        Harness.that(!delivery.evoke(0.01), "evoking is of no use");
        Harness.equal(delivered, List.of());
        delivery.setEnabled(true);
        delivery.evoke(0);
        Harness.equal(delivered, List.of("a"));
    }

    private void failing() {
        delivery.post(to -> {
            throw new hla.rti1516e.exceptions.FederateInternalError("out of order on purpose");
        });
        delivery.post(to -> {
            throw new IllegalStateException("on purpose");
        });
        post("a");
        delivery.evokeMultiple(0, 1);
        Harness.equal(delivered, List.of("a"));
    }

    private void inside() throws Exception {
        delivery.requireOutsideCallback("evokeCallback");
        delivery.post(to -> {
            try {
                Harness.refuses("CallNotAllowedFromWithinCallback",
                        () -> delivery.requireOutsideCallback("evokeCallback"), "evokeCallback");
                delivered.add("refused");
            } catch (Exception e) {
                delivered.add(e.toString());
            }
        });
        delivery.evoke(0);
        Harness.equal(delivered, List.of("refused"));
    }

    private void immediate() throws Exception {
        CountDownLatch done = new CountDownLatch(1);
        delivery.deliverImmediately();
        delivery.post(to -> delivered.add(Thread.currentThread().isDaemon() ? "daemon" : "other"));
        delivery.post(to -> done.countDown());
        Harness.that(done.await(10, TimeUnit.SECONDS), "nobody evokes");
        Harness.equal(delivered, List.of("daemon"));
        Harness.that(seconds(() -> delivery.evoke(5)) < 4, "evoking has nothing to wait for");
        delivery.close();
    }

    private void membership() {
        post("member's");
        delivery.postToConnection(to -> delivered.add("everyone's"));
        delivery.dropMembership();
        delivery.evokeMultiple(0, 1);
        Harness.equal(delivered, List.of("everyone's"));
    }
}
